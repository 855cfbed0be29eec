#include "Applications/ClientList.hpp"

#include "Connection/PropertyBatch.hpp"
#include "Connection/XcbWindows.hpp"
#include "Files/Log/StartLog.hpp"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace vireline::x11 {
namespace {

/// How long a new window manager may take to list its predecessor's windows.
constexpr double handOverSeconds = 2;
constexpr double handOverCheckSeconds = 0.25;

/// A sanity limit: any program can write this property.
constexpr std::size_t maximumWindows = 4096;

/// Whether any of the windows exists and is mapped.
bool isAnyMapped(xcb_connection_t* connection, std::span<const xcb_window_t> windows) {
    std::vector<xcb_get_window_attributes_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const xcb_window_t window : windows)
        cookies.push_back(xcb_get_window_attributes(connection, window));
    bool isMapped = false;
    for (const auto cookie : cookies) {
        const Owned<xcb_get_window_attributes_reply_t> reply{
            xcb_get_window_attributes_reply(connection, cookie, nullptr)};
        isMapped = isMapped || (reply && reply->map_state != XCB_MAP_STATE_UNMAPPED);
    }
    return isMapped;
}

}

ClientList::ClientList(X11Connection& connection, RunLoop& runLoop)
    : connection_(connection), runLoop_(runLoop), reader_(connection) {
    static constexpr std::array<std::string_view, 5> names{
        "_NET_CLIENT_LIST", "_NET_CLIENT_LIST_STACKING", "_NET_ACTIVE_WINDOW",
        "_NET_CURRENT_DESKTOP", "_NET_SUPPORTING_WM_CHECK"};
    connection_.intern(names);
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ = connection_.observe(
        lifetime_.guard([this](const xcb_generic_event_t& event) { handle(event); }));
    refresh();
    noteEarlierWindows();
}

void ClientList::handle(const xcb_generic_event_t& event) {
    switch (eventType(event)) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = as<xcb_property_notify_event_t>(event);
        if (change.window == connection_.root()) {
            const bool concernsList = change.atom == connection_.atom("_NET_CLIENT_LIST") ||
                                      change.atom == connection_.atom("_NET_ACTIVE_WINDOW") ||
                                      change.atom == connection_.atom("_NET_CURRENT_DESKTOP") ||
                                      change.atom == connection_.atom("_NET_SUPPORTING_WM_CHECK");
            if (concernsList)
                scheduleRefresh();
        } else if (known_.contains(change.window) && reader_.concerns(change.atom)) {
            stale_.insert(change.window);
            scheduleRefresh();
        }
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (as<xcb_destroy_notify_event_t>(event).window == manager_)
            scheduleRefresh();
        break;
    case XCB_GE_GENERIC:
        // Pointer events must be handled with the windows up to date.
        if (isRefreshDue_) {
            refresh_.reset();
            refresh();
        }
        break;
    default:
        break;
    }
}

void ClientList::scheduleRefresh() {
    if (isRefreshDue_)
        return;
    isRefreshDue_ = true;
    refresh_ = runLoop_.after(0, lifetime_.guard([this] { refresh(); }));
}

void ClientList::refresh() {
    isRefreshDue_ = false;
    const auto before = windows_;
    const auto shownBefore = std::pair{active_, desktop_};
    const auto listed = listedWindows();
    if (!isHandingOver(listed)) {
        noteManager();
        learn(listed);
        windows_.clear();
        for (const xcb_window_t id : listed) {
            if (const auto found = known_.find(id); found != known_.end() && !found->second.isOwn)
                windows_.push_back(found->second.window);
        }
    }
    connection_.flush();
    if (onChange && (windows_ != before || std::pair{active_, desktop_} != shownBefore))
        onChange();
}

std::vector<xcb_window_t> ClientList::listedWindows() {
    const xcb_window_t root = connection_.root();
    PropertyBatch batch{connection_};
    const auto list = batch.ask(root, "_NET_CLIENT_LIST", maximumWindows * 4);
    const auto active = batch.ask(root, "_NET_ACTIVE_WINDOW", 4);
    const auto desktop = batch.ask(root, "_NET_CURRENT_DESKTOP", 4);
    const auto check = batch.ask(root, "_NET_SUPPORTING_WM_CHECK", 4);
    desktop_ = batch.firstItem(desktop, XCB_ATOM_CARDINAL);
    watchManager(batch.firstItem(check, XCB_ATOM_WINDOW).value_or(XCB_NONE));
    noteActive(hasManager_ ? batch.firstItem(active, XCB_ATOM_WINDOW).value_or(XCB_NONE)
                           : XCB_NONE);
    if (!hasManager_)
        return {};
    const auto items = batch.items(list, XCB_ATOM_WINDOW);
    std::vector<xcb_window_t> listed;
    std::unordered_set<xcb_window_t> seen;
    for (const xcb_window_t window : items) {
        if (window != XCB_NONE && seen.insert(window).second)
            listed.push_back(window);
    }
    return listed;
}

/// A window manager that was killed leaves its properties behind, but the window that they name is
/// destroyed, which reveals its death.
void ClientList::watchManager(xcb_window_t manager) {
    bool isAlive = false;
    if (manager != XCB_NONE) {
        if (manager != manager_)
            connection_.selectInput(manager, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        PropertyBatch batch{connection_};
        const auto check = batch.ask(manager, "_NET_SUPPORTING_WM_CHECK", 4);
        isAlive = batch.firstItem(check, XCB_ATOM_WINDOW) == manager;
    }
    manager_ = manager;
    hasManager_ = isAlive;
}

void ClientList::noteManager() {
    if (isManaged_ && !hasManager_)
        xdg::logOnceStarted("no window manager");
    isManaged_ = hasManager_;
}

/// Whether a window manager is being replaced: its list is gone but the windows are still mapped,
/// unlike windows that were closed.
bool ClientList::isHandingOver(const std::vector<xcb_window_t>& listed) {
    std::vector<xcb_window_t> missing;
    for (const auto& [id, known] : known_) {
        if (std::ranges::find(listed, id) == listed.end())
            missing.push_back(id);
    }
    if (missing.empty() || !isAnyMapped(connection_.get(), missing)) {
        handOverSince_.reset();
        handOver_.reset();
        return false;
    }
    const double now = runLoop_.now();
    if (!handOverSince_)
        handOverSince_ = now;
    if (now - *handOverSince_ >= handOverSeconds) {
        handOverSince_.reset();
        return false;
    }
    handOver_ = runLoop_.after(handOverCheckSeconds, lifetime_.guard([this] { refresh(); }));
    return true;
}

void ClientList::learn(const std::vector<xcb_window_t>& listed) {
    const std::unordered_set<xcb_window_t> current{listed.begin(), listed.end()};
    std::erase_if(known_, [&](const auto& item) { return !current.contains(item.first); });
    std::vector<xcb_window_t> fresh;
    std::vector<xcb_window_t> wanted;
    for (const xcb_window_t id : listed) {
        const bool isNew = !known_.contains(id);
        if (isNew)
            fresh.push_back(id);
        if (isNew || stale_.contains(id))
            wanted.push_back(id);
    }
    stale_.clear();
    // Selected before the windows are read, so that no change is missed in between.
    connection_.selectInput(fresh, XCB_EVENT_MASK_PROPERTY_CHANGE);
    for (auto& window : reader_.read(wanted)) {
        if (!window)
            continue;
        const xcb_window_t id = xcbWindow(window->id);
        Known& known = known_[id];
        window->lastActive = known.window.lastActive;
        if (id == active_ && window->lastActive == 0)
            window->lastActive = ++activations_;
        known.isOwn = window->processIdentifier == getpid();
        known.window = std::move(*window);
    }
}

/// Which windows were active before is unknown; the stacking order is a good approximation.
void ClientList::noteEarlierWindows() {
    const auto stacked = connection_.windows(connection_.root(), "_NET_CLIENT_LIST_STACKING");
    for (const xcb_window_t id : stacked) {
        if (const auto found = known_.find(id); found != known_.end() && id != active_)
            found->second.window.lastActive = ++activations_;
    }
    if (const auto found = known_.find(active_); found != known_.end())
        found->second.window.lastActive = ++activations_;
    for (auto& window : windows_)
        window = known_[xcbWindow(window.id)].window;
}

void ClientList::noteActive(xcb_window_t active) {
    if (active == active_)
        return;
    active_ = active;
    if (const auto found = known_.find(active); found != known_.end())
        found->second.window.lastActive = ++activations_;
}

}
