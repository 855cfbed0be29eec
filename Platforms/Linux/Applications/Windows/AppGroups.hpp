/// Windows gathered into running applications.
#pragma once

#include "Applications/Identity/AppIdentity.hpp"
#include "Applications/Windows/ClientWindow.hpp"

#include <cstdint>
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

/// Whether the app has the active window.
[[nodiscard]] bool isActive(const AppGroup& group, xcb_window_t activeWindow);

/// The windows that hiding iconifies: ordinary, shown, on this desktop.
[[nodiscard]] std::vector<xcb_window_t> shownOn(const AppGroup& group, std::uint32_t desktop);

/// Those of `windows` that are the app's and still iconified, least recently active first.
[[nodiscard]] std::vector<xcb_window_t> stillHidden(const AppGroup& group,
                                                    std::span<const xcb_window_t> windows);

/// The groups of `these` whose apps are not among `those`.
[[nodiscard]] std::vector<AppGroup> without(std::span<const AppGroup> these,
                                            std::span<const AppGroup> those);

}
}
