#include "Applications/ClientWindows/HiddenWindows.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vireline::xdg {
namespace {

/// Null if no app has such a window.
const ClientWindow* find(std::span<const AppGroup> apps, WindowID id) {
    for (const AppGroup& app : apps) {
        const auto found = std::ranges::find(app.windows, id, &ClientWindow::id);
        if (found != app.windows.end())
            return &*found;
    }
    return nullptr;
}

}

std::vector<WindowID> HiddenWindows::hide(const AppGroup& app, std::optional<std::uint32_t> desktop,
                                          double now) {
    std::vector<WindowID> windows;
    for (const ClientWindow& window : app.windows) {
        const bool isHere = !desktop || window.isOnDesktop(*desktop);
        if (window.isOrdinary && isHere && (!window.isHidden || isReturning(window.id, now)))
            windows.push_back(window.id);
    }
    for (const WindowID id : windows) {
        std::erase_if(hidden_, [=](const Hidden& known) { return known.window == id; });
        std::erase_if(returning_, [=](const Returning& known) { return known.window == id; });
        const ClientWindow* const window = find({&app, 1}, id);
        hidden_.push_back({.window = id, .since = now, .wasSeenShown = !window->isHidden});
    }
    return windows;
}

std::vector<HiddenWindows::Restored> HiddenWindows::bringBack(const AppGroup& app, double now) {
    std::vector<std::pair<const ClientWindow*, Restored>> found;
    for (const ClientWindow& window : app.windows) {
        const auto known = std::ranges::find(hidden_, window.id, &Hidden::window);
        if (known == hidden_.end())
            continue;
        const bool wasRestoredByOthers = known->isReported && !window.isHidden;
        if (!wasRestoredByOthers) {
            found.emplace_back(&window, Restored{window.id, known->isReported});
            returning_.push_back({window.id, now});
        }
        hidden_.erase(known);
    }
    std::ranges::sort(found, {}, [](const auto& item) {
        return std::pair{item.first->lastActive, item.first->id};
    });
    std::vector<Restored> restored;
    std::ranges::transform(found, std::back_inserter(restored),
                           &std::pair<const ClientWindow*, Restored>::second);
    return restored;
}

void HiddenWindows::update(std::span<const AppGroup> apps, WindowID activeWindow) {
    const auto isGone = [apps](const auto& known) { return find(apps, known.window) == nullptr; };
    std::erase_if(hidden_, isGone);
    std::erase_if(returning_, isGone);
    for (Hidden& known : hidden_) {
        const bool isHidden = find(apps, known.window)->isHidden;
        known.isReported = known.isReported || (isHidden && known.wasSeenShown);
        known.wasSeenShown = known.wasSeenShown || !isHidden;
    }
    const bool isToLeave =
        std::ranges::find(hidden_, activeWindow, &Hidden::window) != hidden_.end();
    if (activeWindow == WindowID::none || isToLeave)
        return;
    for (Hidden& known : hidden_)
        known.isOvertaken = true;
}

bool HiddenWindows::isLeaving(WindowID window, double now) const {
    const auto known = std::ranges::find(hidden_, window, &Hidden::window);
    return known != hidden_.end() && !known->isReported && !known->isOvertaken &&
           now - known->since < settlingSeconds;
}

bool HiddenWindows::isReturning(WindowID window, double now) const {
    return std::ranges::any_of(returning_, [=](const Returning& known) {
        return known.window == window && now - known.since < settlingSeconds;
    });
}

}
