#include "VirtualDesktop/DragSource.hpp"

#include <algorithm>
#include <utility>

namespace vireline::desktop {

DragSource::DragSource(const std::string& display)
    : client_(display), window_(client_.createWindow({0, 0, 1, 1}, 0)) {
    own(XCB_CURRENT_TIME);
}

void DragSource::own(xcb_timestamp_t time) {
    xcb_set_selection_owner(client_.get(), window_, client_.atom("XdndSelection"), time);
    client_.sync();
}

void DragSource::enter(xcb_window_t target, std::uint32_t version) {
    target_ = target;
    std::vector<xcb_atom_t> types;
    types.reserve(contents.size());
    for (const auto& [type, content] : contents)
        types.push_back(client_.atom(type));
    client_.setItems(window_, "XdndTypeList", XCB_ATOM_ATOM, types);
    std::vector<xcb_atom_t> offered;
    offered.reserve(actions.size());
    for (const auto& action : actions)
        offered.push_back(client_.atom(action));
    client_.setItems(window_, "XdndActionList", XCB_ATOM_ATOM, offered);
    const bool hasMore = types.size() > 3;
    types.resize(3);
    send("XdndEnter",
         {window_, version << 24U | (hasMore ? 1U : 0U), types[0], types[1], types[2]});
}

void DragSource::move(PixelPoint root, std::string_view action) {
    const auto place = static_cast<std::uint32_t>(root.x << 16 | root.y);
    send("XdndPosition", {window_, 0, place, XCB_CURRENT_TIME, client_.atom(action)});
}

void DragSource::leave() {
    send("XdndLeave", {window_});
}

void DragSource::drop() {
    send("XdndDrop", {window_, 0, XCB_CURRENT_TIME});
}

void DragSource::send(std::string_view type, const std::vector<std::uint32_t>& data) const {
    client_.send(target_, type, data);
    client_.sync();
}

bool DragSource::work() {
    bool hasWorked = false;
    while (const auto event = client_.pollEvent()) {
        hasWorked = true;
        switch (eventType(*event)) {
        case XCB_SELECTION_REQUEST:
            serve(as<xcb_selection_request_event_t>(*event));
            break;
        case XCB_CLIENT_MESSAGE:
            hear(as<xcb_client_message_event_t>(*event));
            break;
        case XCB_PROPERTY_NOTIFY: {
            const auto& change = as<xcb_property_notify_event_t>(*event);
            if (pieces_ && change.window == pieces_->requestor &&
                change.atom == pieces_->property && change.state == XCB_PROPERTY_DELETE)
                sendPiece();
            break;
        }
        default:
            break;
        }
    }
    return hasWorked;
}

void DragSource::serve(const xcb_selection_request_event_t& request) {
    ++requests;
    xcb_selection_notify_event_t answered{};
    answered.response_type = XCB_SELECTION_NOTIFY;
    answered.time = request.time;
    answered.requestor = request.requestor;
    answered.selection = request.selection;
    answered.target = request.target;
    answered.property = request.property;
    const std::string& content = contents[nameOf(request.target)];
    switch (answer) {
    case Answer::nothing:
        return;
    case Answer::refusal:
        answered.property = XCB_ATOM_NONE;
        break;
    case Answer::vanished:
        break;
    case Answer::numbers: {
        const std::uint32_t number = 7;
        xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, request.target, 32, 1, &number);
        break;
    }
    case Answer::content:
        xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, request.target, 8,
                            static_cast<std::uint32_t>(content.size()), content.data());
        break;
    case Answer::inPieces: {
        const auto length = static_cast<std::uint32_t>(content.size());
        const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(client_.get(), request.requestor, XCB_CW_EVENT_MASK, &mask);
        xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, client_.atom("INCR"), 32, 1, &length);
        pieces_ = Pieces{request.requestor, request.property, request.target, content};
        break;
    }
    }
    sendEvent(client_.get(), request.requestor, XCB_EVENT_MASK_NO_EVENT, answered);
    client_.sync();
}

void DragSource::sendPiece() {
    if (std::exchange(pieces_->isOver, pieces_->rest.empty()))
        return;
    const auto length = std::min(pieces_->rest.size(), pieceBytes);
    xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, pieces_->requestor, pieces_->property,
                        pieces_->target, 8, static_cast<std::uint32_t>(length),
                        pieces_->rest.data());
    pieces_->rest.erase(0, length);
    client_.sync();
}

void DragSource::hear(const xcb_client_message_event_t& message) {
    const auto* const data = message.data.data32;
    if (message.type == client_.atom("XdndStatus"))
        statuses.push_back({(data[1] & 1U) != 0, nameOf(data[4])});
    if (message.type == client_.atom("XdndFinished"))
        finished = Status{(data[1] & 1U) != 0, nameOf(data[2])};
}

std::string DragSource::nameOf(xcb_atom_t atom) const {
    const Owned<xcb_get_atom_name_reply_t> reply{
        xcb_get_atom_name_reply(client_.get(), xcb_get_atom_name(client_.get(), atom), nullptr)};
    if (!reply)
        return {};
    return {xcb_get_atom_name_name(reply.get()),
            static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

}
