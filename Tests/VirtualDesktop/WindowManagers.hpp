/// The window managers that a virtual desktop can run: each the way its package sets it up, with
/// two desktops and without panels of its own.
#pragma once

#include "VirtualDesktop/ChildProcess.hpp"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vireline::desktop {

enum class WindowManager : std::uint8_t {
    openbox,
    xfwm4,
    kwin,
    mutter,
    marco,
    icewm,
    i3,
    awesome,
    bspwm
};

/// As its users call it, in lower case.
[[nodiscard]] std::string_view shortName(WindowManager manager);

/// The manager with this short name, if there is one.
[[nodiscard]] std::optional<WindowManager> windowManagerNamed(std::string_view name);

/// Whether it asks a session bus for its settings.
[[nodiscard]] bool needsSessionBus(WindowManager manager);

/// Whether it can paint the screen itself.
[[nodiscard]] bool canComposite(WindowManager manager);

/// Whether it takes over from a manager that is running, and gives way to one that comes.
[[nodiscard]] bool handsOver(WindowManager manager);

struct ManagerOptions {
    /// Whether it paints the screen itself, if it can.
    bool composites = false;
    /// Whether it takes over from the manager that is running.
    bool replaces = false;
};

/// Writes the manager's configuration into `folder`, and says how to start it in this environment.
[[nodiscard]] Command windowManagerCommand(WindowManager manager, const ManagerOptions& options,
                                           const std::filesystem::path& folder,
                                           Environment environment);

}
