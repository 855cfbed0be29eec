#include "ClientWindows/WindowKeeper.hpp"

#include "Platform/RunLoop.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>

namespace vireline::x11 {
namespace {

/// How long the window manager and the program may take to bring the window to its goal; seconds.
constexpr double arrivalSeconds = 2;
/// How long the window has to stay there; seconds. A program that moves its newly shown window does
/// so at once, and a user takes longer than this to move it.
constexpr double restSeconds = 0.5;
/// A program or a window manager that has moved the window away this often does so deliberately.
constexpr int maximumCorrections = 6;
/// Timeout for one check; seconds.
constexpr double checkSeconds = 0.1;

/// EWMH source indication 2: the request comes from the user.
constexpr std::uint32_t sourcePager = 2;

/// The events that report that a window was moved, changed or destroyed.
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

void WindowKeeper::send(xcb_window_t window, const WindowSnapshot& now, const WindowGoal& goal) {
    const auto [entry, isNew] = kept_.try_emplace(window);
    // A window that is still being moved may temporarily not fill anything.
    WindowFill fill = now.fill.isAny() ? now.fill : entry->second.fill;
    if (goal.isSized)
        fill = {};
    entry->second = {
        .goal = goal, .fill = fill, .deadline = runLoop_.now() + arrivalSeconds, .release = {}};
    if (isNew)
        listen(window);
    releaseAfter(window, entry->second, arrivalSeconds);
    makeMovable(window, now);
    request(window, now, goal);
}

void WindowKeeper::makeMovable(xcb_window_t window, const WindowSnapshot& now) const {
    if (const auto& shown = now.currentDesktop; shown && now.isOnAnotherDesktop())
        connection_.sendToRoot(window, "_NET_WM_DESKTOP", std::array{*shown, sourcePager});
    setFill(window, now.fill, false);
    if (now.isIconified)
        xcb_map_window(connection_.get(), window);
}

void WindowKeeper::setFill(xcb_window_t window, const WindowFill& fill, bool isOn) const {
    const std::uint32_t action = isOn ? 1 : 0;
    const auto set = [&](std::string_view state) {
        connection_.sendToRoot(window, "_NET_WM_STATE",
                               std::array{action, connection_.atom(state), 0U, sourcePager});
    };
    if (fill.screen)
        set("_NET_WM_STATE_FULLSCREEN");
    if (fill.width && fill.height) {
        connection_.sendToRoot(window, "_NET_WM_STATE",
                               std::array{action, connection_.atom("_NET_WM_STATE_MAXIMIZED_HORZ"),
                                          connection_.atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                                          sourcePager});
    } else if (fill.width) {
        set("_NET_WM_STATE_MAXIMIZED_HORZ");
    } else if (fill.height) {
        set("_NET_WM_STATE_MAXIMIZED_VERT");
    }
}

void WindowKeeper::request(xcb_window_t window, const WindowSnapshot& now,
                           const WindowGoal& goal) const {
    // With static gravity the coordinates are those of the client area's new position.
    constexpr std::uint32_t position = XCB_GRAVITY_STATIC | 1U << 8U | 1U << 9U;
    constexpr std::uint32_t size = 1U << 10U | 1U << 11U;
    const auto displays = displays_();
    if (displays.empty())
        return;
    const PixelRect client = now.clientFor(WindowGoals::outerFrame(goal, now, displays));
    const auto number = [](int value) { return static_cast<std::uint32_t>(value); };
    connection_.sendToRoot(window, "_NET_MOVERESIZE_WINDOW",
                           std::array{position | (goal.isSized ? size : 0) | sourcePager << 12U,
                                      number(client.x), number(client.y), number(client.width),
                                      number(client.height)});
    connection_.flush();
}

void WindowKeeper::handle(const xcb_generic_event_t& event) {
    switch (eventType(event)) {
    case XCB_CONFIGURE_NOTIFY:
        noteChange(as<xcb_configure_notify_event_t>(event).window);
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = as<xcb_property_notify_event_t>(event);
        if (reader_.concerns(change.atom))
            noteChange(change.window);
        break;
    }
    case XCB_DESTROY_NOTIFY:
        kept_.erase(as<xcb_destroy_notify_event_t>(event).window);
        break;
    default:
        break;
    }
}

void WindowKeeper::noteChange(xcb_window_t window) {
    if (kept_.contains(window))
        changed_.insert(window);
}

void WindowKeeper::checkChanged() {
    for (const xcb_window_t window : std::exchange(changed_, {})) {
        const auto found = kept_.find(window);
        if (found != kept_.end() && !check(window, found->second))
            release(window);
    }
}

bool WindowKeeper::check(xcb_window_t window, Kept& kept) {
    const auto deadline = SideConnection::in(checkSeconds);
    const auto now = reader_.read(window, deadline);
    if (!now) {
        const bool isLate = now.error().code == WindowReader::noAnswer;
        if (isLate)
            checkLater(window);
        return isLate;
    }
    if (kept.fill.isAny() && hasReachedDisplay(kept, *now))
        return false;
    if (isMisplaced(kept, *now)) {
        if (reader_.isUserAtWork(deadline)) {
            kept.fill = {};
            return false;
        }
        if (++kept.corrections > maximumCorrections)
            return false;
        kept.isResting = false;
        releaseAfter(window, kept, kept.deadline - runLoop_.now());
        request(window, *now, kept.goal);
    } else if (!std::exchange(kept.isResting, true)) {
        releaseAfter(window, kept, restSeconds);
    }
    return true;
}

bool WindowKeeper::isMisplaced(const Kept& kept, const WindowSnapshot& now) const {
    const auto displays = displays_();
    return !displays.empty() && WindowGoals::outerFrame(kept.goal, now, displays) != now.outer();
}

bool WindowKeeper::hasReachedDisplay(const Kept& kept, const WindowSnapshot& now) const {
    const auto displays = displays_();
    return !now.fill.isAny() && !displays.empty() &&
           WindowGoals::isOnDisplay(kept.goal, now, displays);
}

void WindowKeeper::checkLater(xcb_window_t window) {
    noteChange(window);
    nextCheck_ = runLoop_.after(checkSeconds, lifetime_.guard([this] { checkChanged(); }));
}

void WindowKeeper::releaseAfter(xcb_window_t window, Kept& kept, double seconds) {
    kept.release = runLoop_.after(std::max(0.0, seconds),
                                  lifetime_.guard([this, window] { release(window); }));
}

/// Makes the window fill its current display again.
void WindowKeeper::release(xcb_window_t window) {
    const auto found = kept_.find(window);
    if (found == kept_.end())
        return;
    setFill(window, found->second.fill, true);
    connection_.flush();
    ignore(window);
    kept_.erase(found);
}

/// Waits until the server has processed this: requests on different connections are not ordered
/// relative to each other.
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
