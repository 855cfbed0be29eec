#include "Windows/WindowKeeper.hpp"

#include "Platform/RunLoop.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace vireline::x11 {
namespace {

/// How long a window manager may take to do as it was asked; seconds.
constexpr double correctionSeconds = 1;
/// Whoever has moved the window back this often means it.
constexpr int mostCorrections = 6;
/// How long a check may take; seconds.
constexpr double checkSeconds = 0.1;

/// EWMH: the user wants it.
constexpr std::uint32_t fromPager = 2;

/// The events of a window that tell that it moved, changed or went.
constexpr std::uint32_t windowEvents =
    XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;

}

WindowKeeper::WindowKeeper(const X11Connection& connection, SideConnection& side, RunLoop& runLoop,
                           Displays displays)
    : connection_(connection)
    , side_(side)
    , runLoop_(runLoop)
    , reader_(connection, side)
    , displays_(std::move(displays)) {
    static constexpr std::array<std::string_view, 4> messages{
        "_NET_MOVERESIZE_WINDOW", "_NET_WM_STATE", "_NET_WM_DESKTOP", "_NET_ACTIVE_WINDOW"};
    connection_.intern(messages);
    side_.onEvent = lifetime_.guard([this](const xcb_generic_event_t& event) { handle(event); });
    side_.onRest = lifetime_.guard([this] { checkChanged(); });
}

void WindowKeeper::send(xcb_window_t window, const WindowSnapshot& now, const WindowGoal& goal,
                        std::optional<double> keptUntil) {
    const double corrected = runLoop_.now() + correctionSeconds;
    const auto [entry, isNew] = kept_.try_emplace(window);
    entry->second = {.goal = goal,
                     .correctedUntil = corrected,
                     .keptUntil = std::max(keptUntil.value_or(corrected), corrected)};
    if (isNew)
        listen(window);
    makeMovable(window, now);
    request(window, now, goal);
}

void WindowKeeper::makeMovable(xcb_window_t window, const WindowSnapshot& now) const {
    constexpr std::uint32_t remove = 0;
    if (now.currentDesktopElsewhere) {
        connection_.sendToRoot(window, "_NET_WM_DESKTOP",
                               std::array{*now.currentDesktopElsewhere, fromPager});
    }
    if (now.isFullScreen) {
        connection_.sendToRoot(
            window, "_NET_WM_STATE",
            std::array{remove, connection_.atom("_NET_WM_STATE_FULLSCREEN"), 0U, fromPager});
    }
    if (now.isMaximized) {
        connection_.sendToRoot(window, "_NET_WM_STATE",
                               std::array{remove, connection_.atom("_NET_WM_STATE_MAXIMIZED_HORZ"),
                                          connection_.atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                                          fromPager});
    }
    if (now.isIconified)
        xcb_map_window(connection_.get(), window);
}

void WindowKeeper::request(xcb_window_t window, const WindowSnapshot& now,
                           const WindowGoal& goal) const {
    // Static gravity: the numbers are those of the client area where it shall be.
    constexpr std::uint32_t position = XCB_GRAVITY_STATIC | 1U << 8U | 1U << 9U;
    constexpr std::uint32_t size = 1U << 10U | 1U << 11U;
    const auto displays = displays_();
    if (displays.empty())
        return;
    const PixelRect client = now.clientFor(WindowGoals::outerFrame(goal, now, displays));
    const auto number = [](int value) { return static_cast<std::uint32_t>(value); };
    connection_.sendToRoot(window, "_NET_MOVERESIZE_WINDOW",
                           std::array{position | (goal.isSized ? size : 0) | fromPager << 12U,
                                      number(client.x), number(client.y), number(client.width),
                                      number(client.height)});
    connection_.flush();
}

void WindowKeeper::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_CONFIGURE_NOTIFY:
        noteChange(reinterpret_cast<const xcb_configure_notify_event_t&>(event).window);
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (reader_.concerns(change.atom) || isOver(change.window))
            noteChange(change.window);
        break;
    }
    case XCB_DESTROY_NOTIFY:
        kept_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        break;
    default:
        break;
    }
}

bool WindowKeeper::isOver(xcb_window_t window) const {
    const auto found = kept_.find(window);
    return found != kept_.end() && runLoop_.now() > found->second.keptUntil;
}

void WindowKeeper::noteChange(xcb_window_t window) {
    if (kept_.contains(window))
        changed_.insert(window);
}

void WindowKeeper::checkChanged() {
    for (const xcb_window_t window : std::exchange(changed_, {})) {
        const auto found = kept_.find(window);
        if (found == kept_.end() || check(window, found->second))
            continue;
        ignore(window);
        kept_.erase(found);
    }
}

bool WindowKeeper::check(xcb_window_t window, Kept& kept) {
    if (isOver(window))
        return false;
    const auto deadline = SideConnection::in(checkSeconds);
    const auto now = reader_.read(window, deadline);
    if (!now) {
        const bool isLate = now.error().code == WindowReader::noAnswer;
        if (isLate)
            checkLater(window);
        return isLate;
    }
    if (!isAstray(kept, *now))
        return true;
    if (++kept.corrections > mostCorrections || reader_.isUserAtWork(deadline))
        return false;
    request(window, *now, kept.goal);
    return true;
}

bool WindowKeeper::isAstray(const Kept& kept, const WindowSnapshot& now) const {
    const auto displays = displays_();
    if (displays.empty())
        return false;
    if (runLoop_.now() > kept.correctedUntil)
        return !WindowGoals::isOnDisplay(kept.goal, now, displays);
    return WindowGoals::outerFrame(kept.goal, now, displays) != now.outer();
}

void WindowKeeper::checkLater(xcb_window_t window) {
    noteChange(window);
    nextCheck_ = runLoop_.after(checkSeconds, lifetime_.guard([this] { checkChanged(); }));
}

/// Returns once the server knows: it may take the requests of one connection long before those of
/// another.
void WindowKeeper::listen(xcb_window_t window) const {
    xcb_change_window_attributes(side_.get(), window, XCB_CW_EVENT_MASK, &windowEvents);
    side_.sync(SideConnection::in(checkSeconds));
}

void WindowKeeper::ignore(xcb_window_t window) const {
    constexpr std::uint32_t nothing = 0;
    xcb_change_window_attributes(side_.get(), window, XCB_CW_EVENT_MASK, &nothing);
    side_.flush();
}

}
