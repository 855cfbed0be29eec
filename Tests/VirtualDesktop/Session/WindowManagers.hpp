/// The window managers that a virtual desktop can run, each configured as its package does it, with
/// two desktops and without its own panels.
#pragma once

#include "VirtualDesktop/Processes/ChildProcess.hpp"

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
    bspwm,
    sway,
    kwinWayland
};

/// Whether it is a Wayland compositor, which runs on the X server in windows, but manages none.
[[nodiscard]] constexpr bool isWayland(WindowManager manager) {
    return manager == WindowManager::sway || manager == WindowManager::kwinWayland;
}

/// Its common name, in lower case.
[[nodiscard]] std::string_view shortName(WindowManager manager);

/// The manager with this short name, if there is one.
[[nodiscard]] std::optional<WindowManager> windowManagerNamed(std::string_view name);

/// Whether it reads its settings through a session bus.
[[nodiscard]] bool needsSessionBus(WindowManager manager);

/// Whether it can composite.
[[nodiscard]] bool canComposite(WindowManager manager);

/// Whether it can replace a running manager, and be replaced itself.
[[nodiscard]] bool handsOver(WindowManager manager);

struct ManagerOptions {
    /// Whether it composites, if it supports that.
    bool composites = false;
    /// Whether it replaces a running manager.
    bool replaces = false;
};

/// Writes the manager's configuration to `folder`, and returns the command that starts it in this
/// environment.
[[nodiscard]] Command windowManagerCommand(WindowManager manager, const ManagerOptions& options,
                                           const std::filesystem::path& folder,
                                           Environment environment);

}
