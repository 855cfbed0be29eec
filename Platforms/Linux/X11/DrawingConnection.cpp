#include "X11/DrawingConnection.hpp"

#include "X11/X11Connection.hpp"

namespace vireline::x11 {

DrawingConnection::DrawingConnection(const X11Connection& qt)
    : qt_(qt), own_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(own_.get()) != 0)
        own_.reset();
}

xcb_connection_t* DrawingConnection::get() const noexcept {
    return own_ ? own_.get() : qt_.get();
}

void DrawingConnection::flush() const {
    xcb_flush(get());
}

void DrawingConnection::finish() const {
    const Owned<xcb_get_input_focus_reply_t> answer{
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr)};
    discardEvents();
}

void DrawingConnection::discardEvents() const {
    while (own_ && Owned<xcb_generic_event_t>{xcb_poll_for_queued_event(own_.get())}) {
    }
}

}
