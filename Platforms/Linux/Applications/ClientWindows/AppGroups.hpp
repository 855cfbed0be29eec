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

namespace vireline::x11 {

/// A window and the app that it was found to belong to.
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

/// In the order in which each app's first ordinary window comes. Windows of apps that have no
/// ordinary one are left out.
[[nodiscard]] std::vector<AppGroup> group(std::span<const OwnedWindow> windows);

/// Null when the app does not run.
[[nodiscard]] const AppGroup* find(std::span<const AppGroup> groups, std::string_view bundleID);

/// The ordinary window that was active last; of those that never were, the newest.
[[nodiscard]] const ClientWindow& mostRecent(const AppGroup& group);

/// Whether the app has the active window, and that one can be seen while this desktop is shown.
/// Some window managers leave a window active when they iconify it or show another desktop. Without
/// a desktop every window counts as being on it.
[[nodiscard]] bool isActive(const AppGroup& group, xcb_window_t activeWindow,
                            std::optional<std::uint32_t> desktop);

/// The groups of `these` whose apps are not among `those`.
[[nodiscard]] std::vector<AppGroup> without(std::span<const AppGroup> these,
                                            std::span<const AppGroup> those);

}
}
