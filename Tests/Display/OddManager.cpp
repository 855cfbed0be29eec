#include "Display/OddManager.hpp"

#include <poll.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>
#include <vector>

namespace vireline::test {
namespace {

constexpr const char* check = "_NET_SUPPORTING_WM_CHECK";

}

OddManager::OddManager(const std::string& display, Habit habit)
    : client_(display), habit_(habit), mark_(client_.createWindow({-10, -10, 1, 1}, 0)) {
    const std::uint32_t events =
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(client_.get(), client_.root(), XCB_CW_EVENT_MASK, &events);
    client_.setItems(mark_, check, XCB_ATOM_WINDOW, {mark_});
    client_.setItems(client_.root(), check, XCB_ATOM_WINDOW, {mark_});
    client_.setAtoms(client_.root(), "_NET_SUPPORTED", {"_NET_WM_STATE_FULLSCREEN"});
    client_.setItems(client_.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, {});
    client_.sync();
    thread_ = std::thread{[this] { run(); }};
}

OddManager::~OddManager() {
    isEnding_ = true;
    thread_.join();
    client_.destroy(mark_);
    client_.sync();
}

void OddManager::run() {
    constexpr int interval = 10;
    pollfd readable{xcb_get_file_descriptor(client_.get()), POLLIN, 0};
    while (!isEnding_) {
        while (const auto event = client_.pollEvent())
            handle(*event);
        xcb_flush(client_.get());
        poll(&readable, 1, interval);
    }
}

void OddManager::handle(const xcb_generic_event_t& event) {
    switch (x11::eventType(event)) {
    case XCB_MAP_REQUEST:
        return show(x11::as<xcb_map_request_event_t>(event).window);
    case XCB_CONFIGURE_REQUEST:
        return configure(x11::as<xcb_configure_request_event_t>(event));
    case XCB_CONFIGURE_NOTIFY:
        return stacked(x11::as<xcb_configure_notify_event_t>(event));
    default:
        break;
    }
}

void OddManager::show(xcb_window_t window) {
    const bool isDockWindow = isDock(window);
    if (isDockWindow && habit_ == Habit::docksDocks) {
        const std::array<std::uint32_t, 2> place{0, client_.screen().width_in_pixels};
        xcb_configure_window(client_.get(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_WIDTH,
                             place.data());
    }
    if (isDockWindow && habit_ == Habit::stranded) {
        const std::array<std::uint32_t, 2> place{0, 0};
        xcb_configure_window(client_.get(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                             place.data());
    }
    if (isDockWindow && habit_ == Habit::bordersDocks)
        client_.setItems(window, "_NET_FRAME_EXTENTS", XCB_ATOM_CARDINAL, {1, 1, 1, 1});
    const bool isLeftAlone =
        isDockWindow && (habit_ == Habit::ignoresDocks || habit_ == Habit::fightsDocks ||
                         habit_ == Habit::framesWindows);
    client_.setItems(window, "WM_STATE", client_.atom("WM_STATE"), {1, 0});
    if (!isLeftAlone) {
        listed_.push_back(window);
        client_.setItems(client_.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, listed_);
    }
    if (!isDockWindow) {
        top_ = habit_ == Habit::framesWindows ? putInFrame(window) : window;
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(client_.get(), top_, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    }
    client_.map(window);
    if (!isLeftAlone)
        stack(window);
    if (habit_ == Habit::focusesWindows && !refusesFocus(window))
        xcb_set_input_focus(client_.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(client_.get());
}

/// Docks are listed at the top unless other windows cover them.
void OddManager::stack(xcb_window_t window) {
    const bool goesBelow = !isDock(window) && habit_ != Habit::coversDocks;
    auto place = stacking_.end();
    if (goesBelow)
        place = std::ranges::find_if(stacking_, [this](auto listed) { return isDock(listed); });
    if (goesBelow && place != stacking_.end()) {
        const std::array<std::uint32_t, 2> below{*place, XCB_STACK_MODE_BELOW};
        xcb_configure_window(client_.get(), window,
                             XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE,
                             below.data());
    }
    stacking_.insert(place, window);
    client_.setItems(client_.root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, stacking_);
}

xcb_window_t OddManager::putInFrame(xcb_window_t window) {
    const auto place = client_.frame(window).value_or(desktop::PixelRect{});
    const auto frame = client_.createWindow(place, 0);
    const std::uint32_t yes = 1;
    xcb_change_window_attributes(client_.get(), frame, XCB_CW_OVERRIDE_REDIRECT, &yes);
    xcb_reparent_window(client_.get(), window, frame, 0, 0);
    client_.map(frame);
    return frame;
}

/// Carries out the request, except where the manager's quirk prevents it.
void OddManager::configure(const xcb_configure_request_event_t& request) {
    if (isDock(request.window)) {
        if (habit_ == Habit::docksDocks || habit_ == Habit::stranded)
            return;
        if (habit_ == Habit::answersLate && !std::exchange(hasAnswered_, true))
            std::this_thread::sleep_for(std::chrono::seconds{2});
    }
    std::vector<std::uint32_t> values;
    const auto add = [&](std::uint16_t flag, auto value) {
        if ((request.value_mask & flag) != 0)
            values.push_back(static_cast<std::uint32_t>(value));
    };
    add(XCB_CONFIG_WINDOW_X, request.x);
    add(XCB_CONFIG_WINDOW_Y, request.y);
    add(XCB_CONFIG_WINDOW_WIDTH, request.width);
    add(XCB_CONFIG_WINDOW_HEIGHT, request.height);
    add(XCB_CONFIG_WINDOW_BORDER_WIDTH, request.border_width);
    add(XCB_CONFIG_WINDOW_SIBLING, request.sibling);
    add(XCB_CONFIG_WINDOW_STACK_MODE, request.stack_mode);
    xcb_configure_window(client_.get(), request.window, request.value_mask, values.data());
}

void OddManager::stacked(const xcb_configure_notify_event_t& change) {
    if (habit_ != Habit::fightsDocks || top_ == XCB_NONE || !isDock(change.window) ||
        change.above_sibling != top_)
        return;
    ++raises_;
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(client_.get(), top_, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

/// By its input hint, and by not being prepared to take the focus itself.
bool OddManager::refusesFocus(xcb_window_t window) const {
    constexpr std::uint32_t inputHint = 1;
    const auto hints = client_.items(window, "WM_HINTS");
    const bool takesInput = hints.size() < 2 || (hints[0] & inputHint) == 0 || hints[1] != 0;
    return !takesInput && std::ranges::count(client_.atoms(window, "WM_PROTOCOLS"),
                                             client_.atom("WM_TAKE_FOCUS")) == 0;
}

bool OddManager::isDock(xcb_window_t window) {
    const auto [entry, isNew] = docks_.try_emplace(window, false);
    if (isNew) {
        entry->second = std::ranges::count(client_.atoms(window, "_NET_WM_WINDOW_TYPE"),
                                           client_.atom("_NET_WM_WINDOW_TYPE_DOCK")) > 0;
    }
    return entry->second;
}

}
