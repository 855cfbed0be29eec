#include "Panels/Drops/XdndTarget.hpp"

#include "Applications/Identity/HostName.hpp"
#include "Connection/X11Connection.hpp"
#include "Foundation/DevLog.hpp"
#include "Panels/DroppedText.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <utility>

namespace vireline::x11 {
namespace {

constexpr std::uint32_t oldestVersion = 3;
constexpr std::uint32_t version = 5;
constexpr xcb_atom_t noAction = XCB_ATOM_NONE;

/// An abandoned transfer may still be answered, so the next one uses another property.
constexpr std::array<std::string_view, 4> properties{"_VIRELINE_DROP_0", "_VIRELINE_DROP_1",
                                                     "_VIRELINE_DROP_2", "_VIRELINE_DROP_3"};

constexpr std::array<std::string_view, 9> atomNames{
    "XdndAware",      "XdndEnter",      "XdndPosition",  "XdndLeave",      "XdndDrop",
    "XdndActionCopy", "XdndActionMove", "XdndActionAsk", "XdndActionList",
};

bool isThere(const X11Connection& connection, xcb_window_t window) {
    const Owned<xcb_get_geometry_reply_t> geometry{xcb_get_geometry_reply(
        connection.get(), xcb_get_geometry(connection.get(), window), nullptr)};
    return geometry != nullptr;
}

}

XdndTarget::XdndTarget(X11Connection& connection, xcb_window_t window,
                       PanelWindowListener& listener, ViewPoint viewPoint)
    : connection_(connection)
    , window_(window)
    , listener_(listener)
    , viewPoint_(std::move(viewPoint)) {
    connection_.intern(atomNames);
    connection_.intern(xdg::DroppedText::formats);
    connection_.intern(properties);
    connection_.selectInput(window_, XCB_EVENT_MASK_PROPERTY_CHANGE);
    connection_.setItems(window_, "XdndAware", XCB_ATOM_ATOM, std::array{version});
}

XdndTarget::~XdndTarget() {
    leave();
}

bool XdndTarget::handle(const xcb_client_message_event_t& message) {
    if (message.format != 32)
        return false;
    const auto is = [&](std::string_view name) { return message.type == connection_.atom(name); };
    if (is("XdndEnter")) {
        enter(message);
        return true;
    }
    const bool isMove = is("XdndPosition");
    const bool isLeave = is("XdndLeave");
    if (!isMove && !isLeave && !is("XdndDrop"))
        return false;
    if (!drag_ || message.data.data32[0] != drag_->source)
        return true;
    if (isMove) {
        move(*drag_, message);
    } else if (isLeave) {
        leave();
    } else {
        drop(*drag_);
    }
    return true;
}

void XdndTarget::enter(const xcb_client_message_event_t& message) {
    leave();
    const xcb_window_t source = message.data.data32[0];
    const std::uint32_t spoken = message.data.data32[1] >> 24U;
    if (spoken < oldestVersion || spoken > version)
        return;
    // The source's exit ends the drag. Selected before checking that it exists, so that its exit
    // cannot be missed.
    connection_.selectInput(source, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    if (!isThere(connection_, source))
        return;
    sourceEvents_ = connection_.observe([this, source](const xcb_generic_event_t& event) {
        if (eventType(event) == XCB_DESTROY_NOTIFY &&
            as<xcb_destroy_notify_event_t>(event).window == source)
            leave();
    });
    Drag drag{.source = source,
              .format = bestFormat(message),
              .actions = connection_.atoms(source, "XdndActionList")};
    if (drag.format.empty())
        drag.content = Content::refused;
    drag_ = std::move(drag);
}

std::string_view XdndTarget::bestFormat(const xcb_client_message_event_t& message) const {
    const bool hasMore = (message.data.data32[1] & 1U) != 0;
    const std::span<const std::uint32_t> data{message.data.data32};
    const auto few = data.subspan(2);
    const auto offered = hasMore ? connection_.atoms(data[0], "XdndTypeList")
                                 : std::vector<xcb_atom_t>{few.begin(), few.end()};
    for (const std::string_view format : xdg::DroppedText::formats) {
        if (std::ranges::find(offered, connection_.atom(format)) != offered.end())
            return format;
    }
    return {};
}

void XdndTarget::move(Drag& drag, const xcb_client_message_event_t& message) {
    const std::uint32_t place = message.data.data32[2];
    drag.x = static_cast<std::int16_t>(place >> 16U);
    drag.y = static_cast<std::int16_t>(place & 0xffffU);
    drag.action = message.data.data32[4];
    drag.needsStatus = true;
    if (drag.content == Content::unasked)
        ask(drag, message.data.data32[3]);
    else if (drag.content != Content::asked)
        sendStatus(drag);
}

/// Requests the data at the first position message, which has the timestamp that the source
/// expects.
void XdndTarget::ask(Drag& drag, xcb_timestamp_t time) {
    drag.content = Content::asked;
    const auto property = properties.at(transfers_++ % properties.size());
    transfer_ = std::make_unique<SelectionTransfer>(
        connection_,
        SelectionTransfer::Request{.requestor = window_,
                                   .selection = connection_.atom("XdndSelection"),
                                   .target = connection_.atom(drag.format),
                                   .property = connection_.atom(property),
                                   .time = time},
        [this](const Result<std::string>& content) {
            if (drag_)
                answered(*drag_, content);
        });
}

void XdndTarget::answered(Drag& drag, const Result<std::string>& content) {
    if (content) {
        drag.content = Content::told;
        listener_.dragEntered(xdg::DroppedText::urls(drag.format, *content, xdg::HostName::read()));
    } else {
        drag.content = Content::refused;
        DevLog::write("drag refused: " + content.error().description);
    }
    if (drag.needsFinish)
        finish(drag);
    else if (drag.needsStatus)
        sendStatus(drag);
}

void XdndTarget::sendStatus(Drag& drag) {
    constexpr std::uint32_t accepts = 1;
    constexpr std::uint32_t wantsEveryPosition = 2;
    drag.needsStatus = false;
    const bool canDrop =
        drag.content == Content::told && listener_.dragMoved(viewPoint_(drag.x, drag.y));
    connection_.sendToWindow(
        drag.source, "XdndStatus",
        std::array<std::uint32_t, 5>{window_, wantsEveryPosition | (canDrop ? accepts : 0), 0, 0,
                                     canDrop ? chosenAction(drag) : noAction});
    connection_.flush();
}

/// A target may always choose to copy. If the source insists on another action, it gets that one,
/// since it may have a reason.
xcb_atom_t XdndTarget::chosenAction(const Drag& drag) const {
    const xcb_atom_t copy = connection_.atom("XdndActionCopy");
    const xcb_atom_t move = connection_.atom("XdndActionMove");
    const xcb_atom_t ask = connection_.atom("XdndActionAsk");
    const auto offers = [&](xcb_atom_t action) {
        return std::ranges::find(drag.actions, action) != drag.actions.end();
    };
    if (drag.action == copy || offers(copy))
        return copy;
    if (drag.action == move || (drag.action == ask && offers(move)))
        return move;
    return drag.action == ask && !drag.actions.empty() ? ask : copy;
}

void XdndTarget::leave() {
    transfer_.reset();
    sourceEvents_.reset();
    const auto drag = std::exchange(drag_, std::nullopt);
    if (drag && drag->content == Content::told)
        listener_.dragExited();
}

void XdndTarget::drop(Drag& drag) {
    // The source no longer waits for a status.
    drag.needsStatus = false;
    if (drag.content == Content::asked) {
        drag.needsFinish = true;
    } else {
        finish(drag);
    }
}

void XdndTarget::finish(Drag& drag) {
    const xcb_window_t source = drag.source;
    const xcb_atom_t action = chosenAction(drag);
    const Point place = viewPoint_(drag.x, drag.y);
    // The listener gets `dropped` instead of `dragExited`, and may destroy this object in response.
    const bool canDrop = std::exchange(drag.content, Content::refused) == Content::told;
    leave();
    const X11Connection& connection = connection_;
    const xcb_window_t window = window_;
    const bool isTaken = canDrop && listener_.dropped(place);
    connection.sendToWindow(
        source, "XdndFinished",
        std::array<std::uint32_t, 3>{window, isTaken ? 1U : 0U, isTaken ? action : noAction});
    connection.flush();
}

}
