#include "VirtualDesktop/Docks/DockWatch.hpp"

#include "VirtualDesktop/Processes/Waiting.hpp"

#include <poll.h>

#include <algorithm>
#include <stdexcept>

namespace vireline::desktop {

DockWatch::DockWatch(const std::string& display) : client_(display) {
    listen(client_.root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
    client_.sync();
}

const std::vector<DockWatch::Shown>& DockWatch::waitForDocks(std::size_t count) {
    const auto deadline = Clock::now() + conditionTimeout;
    while (docks_.size() < count && Clock::now() < deadline)
        waitForEvents();
    if (docks_.size() < count)
        throw std::runtime_error{"the docks do not come up"};
    return docks_;
}

void DockWatch::waitForEvents() {
    constexpr int limit = 100;
    pollfd readable{xcb_get_file_descriptor(client_.get()), POLLIN, 0};
    poll(&readable, 1, limit);
    while (const auto event = client_.pollEvent())
        handle(*event);
}

void DockWatch::handle(const xcb_generic_event_t& event) {
    if (event.response_type == XCB_CREATE_NOTIFY) {
        const auto& created = as<xcb_create_notify_event_t>(event);
        // After the window manager has reparented it, the root window reports no more about it.
        listen(created.window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        xcb_flush(client_.get());
    } else if (event.response_type == XCB_MAP_NOTIFY) {
        note(as<xcb_map_notify_event_t>(event).window, Clock::now());
    } else if (event.response_type == XCB_PROPERTY_NOTIFY &&
               as<xcb_property_notify_event_t>(event).atom == client_.atom("_NET_CLIENT_LIST")) {
        // Windows that appeared before their events could be selected.
        const auto now = Clock::now();
        for (const xcb_window_t window : client_.managedWindows()) {
            if (client_.isViewable(window))
                note(window, now);
        }
    }
}

void DockWatch::note(xcb_window_t window, Clock::time_point now) {
    if (isDock(window) && std::ranges::find(docks_, window, &Shown::window) == docks_.end())
        docks_.push_back({window, now});
}

bool DockWatch::isDock(xcb_window_t window) const {
    const auto types = client_.atoms(window, "_NET_WM_WINDOW_TYPE");
    return std::ranges::find(types, client_.atom("_NET_WM_WINDOW_TYPE_DOCK")) != types.end();
}

void DockWatch::listen(xcb_window_t window, std::uint32_t events) const {
    xcb_change_window_attributes(client_.get(), window, XCB_CW_EVENT_MASK, &events);
}

}
