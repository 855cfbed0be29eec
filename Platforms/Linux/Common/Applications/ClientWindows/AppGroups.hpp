/// Windows gathered into running applications.
#pragma once

#include "Applications/ClientWindows/ClientWindow.hpp"
#include "Applications/Identity/AppIdentity.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg {

/// A window and the app that it belongs to.
struct OwnedWindow {
    ClientWindow window;
    IdentifiedApp app;

    bool operator==(const OwnedWindow&) const = default;
};

/// A running application: its windows in the window manager's order, at least one of which is
/// ordinary.
struct AppGroup {
    IdentifiedApp app;
    std::vector<ClientWindow> windows;

    bool operator==(const AppGroup&) const = default;
};

namespace AppGroups {

/// In the order of each app's first ordinary window. Apps without an ordinary window are left out.
[[nodiscard]] std::vector<AppGroup> group(std::span<const OwnedWindow> windows);

/// Null if the app is not running.
[[nodiscard]] const AppGroup* find(std::span<const AppGroup> groups, std::string_view bundleID);

/// The most recently active ordinary window; if none was ever active, the newest.
[[nodiscard]] const ClientWindow& mostRecent(const AppGroup& group);

/// Whether the app owns the active window, and that window is visible on this desktop. Some window
/// managers keep a window active when they iconify it or switch to another desktop. If `desktop` is
/// nullopt, every window counts as being on it.
[[nodiscard]] bool isActive(const AppGroup& group, WindowID activeWindow,
                            std::optional<std::uint32_t> desktop);

/// The groups of `these` whose apps are not among `those`.
[[nodiscard]] std::vector<AppGroup> without(std::span<const AppGroup> these,
                                            std::span<const AppGroup> those);

}
}
