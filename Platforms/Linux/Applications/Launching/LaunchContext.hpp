/// What GIO asks for when it starts a program for us.
#pragma once

#include "GLib/GLibHandles.hpp"

#include <functional>
#include <string>

namespace vireline::x11::LaunchContext {

/// A context with the environment of `LaunchEnvironment` and this startup ID; with an empty one the
/// program gets none. `onFailed` is called on the main thread when an activation over D-Bus, whose
/// outcome nobody waits for, came to nothing. Made on the main thread, used on any.
[[nodiscard]] GObjectHandle<GAppLaunchContext> make(const std::string& startupID,
                                                    std::function<void()> onFailed);

}
