/// The launch context that GIO needs to start a program.
#pragma once

#include "GLib/GLibHandles.hpp"

#include <functional>
#include <string>

namespace vireline::xdg::LaunchContext {

/// A context with the environment from `LaunchEnvironment` and this startup ID; if it is empty, the
/// program gets none. `onFailed` is called on the main thread if an activation over D-Bus, whose
/// result is not awaited, fails. Create it on the main thread; it may be used on any.
[[nodiscard]] GObjectHandle<GAppLaunchContext> make(const std::string& startupID,
                                                    std::function<void()> onFailed);

}
