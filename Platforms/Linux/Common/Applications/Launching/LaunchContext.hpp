/// The launch context that GIO needs to start a program.
#pragma once

#include "Applications/Launching/StartupNotices.hpp"
#include "GLib/GLibHandles.hpp"

#include <functional>

namespace vireline::xdg::LaunchContext {

/// A context with the environment from `LaunchEnvironment` and this pass. `onFailed` is called on
/// the main thread if an activation over D-Bus, whose result is not awaited, fails. Create it on
/// the main thread; it may be used on any.
[[nodiscard]] GObjectHandle<GAppLaunchContext> make(const LaunchPass& pass,
                                                    std::function<void()> onFailed);

}
