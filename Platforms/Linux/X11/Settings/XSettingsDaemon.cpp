#include "Settings/XSettingsDaemon.hpp"

#include "Connection/X11Connection.hpp"
#include "Settings/XSettings.hpp"

#include <cstdint>

namespace vireline::x11 {

XSettingsDaemon::XSettingsDaemon(X11Connection& connection)
    : connection_(connection)
    , events_(connection.observe([this](const xcb_generic_event_t& event) { handle(event); })) {
    // A new settings daemon announces itself on the root window.
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    watch();
}

xdg::DesktopSettings XSettingsDaemon::read() const {
    return XSettings::read(connection_);
}

void XSettingsDaemon::handle(const xcb_generic_event_t& event) {
    switch (eventType(event)) {
    case XCB_PROPERTY_NOTIFY:
        if (window_ != XCB_NONE && as<xcb_property_notify_event_t>(event).window == window_)
            changes_.notify();
        break;
    case XCB_CLIENT_MESSAGE: {
        const auto& message = as<xcb_client_message_event_t>(event);
        if (message.window == connection_.root() && message.format == 32 &&
            message.type == connection_.atom("MANAGER") &&
            message.data.data32[1] == connection_.atom(XSettings::selection(connection_))) {
            watch();
            changes_.notify();
        }
        break;
    }
    case XCB_DESTROY_NOTIFY:
        if (as<xcb_destroy_notify_event_t>(event).window == window_)
            window_ = XCB_NONE;
        break;
    default:
        break;
    }
}

void XSettingsDaemon::watch() {
    window_ = XSettings::owner(connection_);
    if (window_ != XCB_NONE)
        connection_.selectInput(window_,
                                XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
}

}
