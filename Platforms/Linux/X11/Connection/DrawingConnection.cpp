#include "Connection/DrawingConnection.hpp"

#include "Connection/X11Connection.hpp"

#include <xcb/xcbext.h>

#include <utility>

namespace vireline::x11 {

ServerMark::~ServerMark() {
    if (!isAnswered_)
        xcb_discard_reply(connection_, cookie_.sequence);
}

void ServerMark::await() {
    if (std::exchange(isAnswered_, true))
        return;
    // Polls first, because waiting makes a system call even if the reply has already been read.
    void* answer = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (xcb_poll_for_reply(connection_, cookie_.sequence, &answer, &error) == 0)
        answer = xcb_get_input_focus_reply(connection_, cookie_, &error);
    const Owned<void> ownedAnswer{answer};
    const Owned<xcb_generic_error_t> ownedError{error};
}

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
    ServerMark{get()}.await();
    discardEvents();
}

void DrawingConnection::discardEvents() const {
    while (own_ && Owned<xcb_generic_event_t>{xcb_poll_for_queued_event(own_.get())}) {
    }
}

}
