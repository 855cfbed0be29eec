#include "Connection/SelectionTransfer.hpp"

#include "Connection/X11Connection.hpp"

#include <QObject>
#include <utility>

namespace vireline::x11 {

SelectionTransfer::SelectionTransfer(X11Connection& connection, const Request& request, Done done,
                                     std::chrono::milliseconds timeout)
    : connection_(connection)
    , request_(request)
    , done_(std::move(done))
    , events_(connection.observe([this](const xcb_generic_event_t& event) { handle(event); })) {
    limit_.setSingleShot(true);
    limit_.setInterval(timeout);
    QObject::connect(&limit_, &QTimer::timeout, &limit_,
                     [this] { fail("its owner does not answer"); });
    limit_.start();
    xcb_delete_property(connection_.get(), request_.requestor, request_.property);
    xcb_convert_selection(connection_.get(), request_.requestor, request_.selection,
                          request_.target, request_.property, request_.time);
    connection_.flush();
}

void SelectionTransfer::handle(const xcb_generic_event_t& event) {
    switch (eventType(event)) {
    case XCB_SELECTION_NOTIFY:
        answered(as<xcb_selection_notify_event_t>(event));
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& change = as<xcb_property_notify_event_t>(event);
        if (comesInPieces_ && change.window == request_.requestor &&
            change.atom == request_.property && change.state == XCB_PROPERTY_NEW_VALUE)
            takePiece();
        break;
    }
    default:
        break;
    }
}

void SelectionTransfer::answered(const xcb_selection_notify_event_t& answer) {
    if (comesInPieces_ || answer.requestor != request_.requestor ||
        answer.selection != request_.selection || answer.target != request_.target)
        return;
    if (answer.property == XCB_ATOM_NONE)
        return fail("its owner refuses");
    // A late reply to an earlier request.
    if (answer.property != request_.property)
        return;
    takePiece();
}

/// Deleting a chunk asks the owner for the next one; an empty chunk is the last.
void SelectionTransfer::takePiece() {
    limit_.start();
    constexpr auto maximumUnits = static_cast<std::uint32_t>(maximumBytes / 4);
    const Owned<xcb_get_property_reply_t> piece{xcb_get_property_reply(
        connection_.get(),
        xcb_get_property(connection_.get(), 1, request_.requestor, request_.property,
                         XCB_GET_PROPERTY_TYPE_ANY, 0, maximumUnits),
        nullptr)};
    if (!piece || piece->type == XCB_ATOM_NONE)
        return fail("it never came");
    if (!comesInPieces_ && piece->type == connection_.atom("INCR")) {
        comesInPieces_ = true;
        return;
    }
    if (piece->format != 8)
        return fail("it is no text");
    const auto length = static_cast<std::size_t>(xcb_get_property_value_length(piece.get()));
    if (piece->bytes_after > 0 || length > maximumBytes - content_.size())
        return fail("it is too long");
    content_.append(static_cast<const char*>(xcb_get_property_value(piece.get())), length);
    if (!comesInPieces_ || length == 0)
        finish(std::move(content_));
}

void SelectionTransfer::fail(const char* reason) {
    finish(std::unexpected{PlatformError{0, reason}});
}

void SelectionTransfer::finish(Result<std::string> outcome) {
    events_.reset();
    limit_.stop();
    const Done done = std::exchange(done_, nullptr);
    if (done)
        done(std::move(outcome));
}

}
