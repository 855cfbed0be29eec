#include "StatusBar/TrayManager.hpp"

#include "Connection/X11Connection.hpp"
#include "StatusBar/TrayIcon.hpp"

namespace vireline::x11 {

TrayManager::TrayManager(X11Connection& connection)
    : connection_(connection)
    , selection_(
          connection.atom("_NET_SYSTEM_TRAY_S" + std::to_string(connection.screenNumber()))) {
    events_ = connection_.observe([this](const xcb_generic_event_t& event) { handle(event); });
    // A new tray announces itself on the root window.
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    look();
}

std::unique_ptr<xdg::SystemTray::Icon> TrayManager::makeIcon(const std::string& name,
                                                             IconCallbacks callbacks) {
    return std::make_unique<TrayIcon>(connection_, window_.get(), name, std::move(callbacks));
}

void TrayManager::handle(const xcb_generic_event_t& event) {
    const auto type = eventType(event);
    if (type == XCB_CLIENT_MESSAGE) {
        const auto& message = as<xcb_client_message_event_t>(event);
        if (message.type == connection_.atom("MANAGER") && message.format == 32 &&
            message.data.data32[1] == selection_)
            look();
    } else if (type == XCB_DESTROY_NOTIFY) {
        const auto& gone = as<xcb_destroy_notify_event_t>(event);
        if (gone.window == window_.get())
            look();
    }
}

void TrayManager::look() {
    const xcb_window_t found = selectionOwner(connection_.get(), selection_);
    // Selected before observers are told, so that the end of the tray cannot be missed.
    if (found != XCB_NONE)
        connection_.selectInput(found, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    window_.set(found);
}

}
