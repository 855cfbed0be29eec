#include "Applications/ClientWindows/AppGroups.hpp"

#include <algorithm>
#include <functional>
#include <iterator>

namespace vireline::xdg::AppGroups {
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
    // An app is placed by its first ordinary window, not by a splash screen before it.
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

bool isActive(const AppGroup& group, WindowID activeWindow, std::optional<std::uint32_t> desktop) {
    const auto active = std::ranges::find(group.windows, activeWindow, &ClientWindow::id);
    if (activeWindow == WindowID::none || active == group.windows.end())
        return false;
    return !active->isHidden && (!desktop || active->isOnDesktop(*desktop));
}

std::vector<AppGroup> without(std::span<const AppGroup> these, std::span<const AppGroup> those) {
    std::vector<AppGroup> missing;
    std::ranges::copy_if(these, std::back_inserter(missing), [those](const AppGroup& group) {
        return find(those, group.app.bundleID) == nullptr;
    });
    return missing;
}

}
