#include "Applications/Windows/AppGroups.hpp"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace vireline::x11::AppGroups {
namespace {

bool hasOrdinary(const AppGroup& group) {
    return std::ranges::any_of(group.windows, &ClientWindow::isOrdinary);
}

}

std::vector<AppGroup> group(std::span<const OwnedWindow> windows) {
    std::vector<AppGroup> groups;
    const auto groupOf = [&groups](const IdentifiedApp& app) -> AppGroup& {
        const auto found = std::ranges::find(
            groups, app.bundleID, [](const AppGroup& group) { return group.app.bundleID; });
        return found == groups.end() ? groups.emplace_back(app, std::vector<ClientWindow>{})
                                     : *found;
    };
    // An app's place is that of its first window that counts, not of a splash before it.
    for (const auto& [window, app] : windows) {
        if (window.isOrdinary)
            static_cast<void>(groupOf(app));
    }
    for (const auto& [window, app] : windows)
        groupOf(app).windows.push_back(window);
    std::erase_if(groups, std::not_fn(hasOrdinary));
    return groups;
}

const AppGroup* find(std::span<const AppGroup> groups, std::string_view bundleID) {
    const auto found = std::ranges::find_if(
        groups, [bundleID](const AppGroup& group) { return group.app.bundleID == bundleID; });
    return found == groups.end() ? nullptr : &*found;
}

const ClientWindow& mostRecent(const AppGroup& group) {
    const ClientWindow* best = &group.windows.front();
    for (const ClientWindow& window : group.windows) {
        const bool isBetterKind = window.isOrdinary && !best->isOrdinary;
        const bool isSameKind = window.isOrdinary == best->isOrdinary;
        if (isBetterKind || (isSameKind && window.lastActive >= best->lastActive))
            best = &window;
    }
    return *best;
}

bool isActive(const AppGroup& group, xcb_window_t activeWindow) {
    return activeWindow != XCB_NONE &&
           std::ranges::find(group.windows, activeWindow, &ClientWindow::id) != group.windows.end();
}

std::vector<xcb_window_t> shownOn(const AppGroup& group, std::uint32_t desktop) {
    std::vector<xcb_window_t> shown;
    for (const ClientWindow& window : group.windows) {
        if (window.isOrdinary && !window.isHidden && window.isOnDesktop(desktop))
            shown.push_back(window.id);
    }
    return shown;
}

std::vector<xcb_window_t> stillHidden(const AppGroup& group,
                                      std::span<const xcb_window_t> windows) {
    std::vector<ClientWindow> hidden;
    std::ranges::copy_if(
        group.windows, std::back_inserter(hidden), [windows](const ClientWindow& window) {
            return window.isHidden && std::ranges::find(windows, window.id) != windows.end();
        });
    std::ranges::sort(hidden, {}, [](const ClientWindow& window) {
        return std::pair{window.lastActive, window.id};
    });
    std::vector<xcb_window_t> ids;
    std::ranges::transform(hidden, std::back_inserter(ids), &ClientWindow::id);
    return ids;
}

std::vector<AppGroup> without(std::span<const AppGroup> these, std::span<const AppGroup> those) {
    std::vector<AppGroup> missing;
    std::ranges::copy_if(these, std::back_inserter(missing), [those](const AppGroup& group) {
        return find(those, group.app.bundleID) == nullptr;
    });
    return missing;
}

}
