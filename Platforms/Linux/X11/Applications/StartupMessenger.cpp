#include "Applications/StartupMessenger.hpp"

#include <unistd.h>

#include <algorithm>

namespace vireline::x11 {
namespace {

constexpr const char* beginName = "_NET_STARTUP_INFO_BEGIN";
constexpr const char* continueName = "_NET_STARTUP_INFO";

xcb_window_t makeSender(const X11Connection& connection) {
    const xcb_window_t window = xcb_generate_id(connection.get());
    const std::uint32_t overrideRedirect = 1;
    xcb_create_window(connection.get(), 0, window, connection.root(), -100, -100, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
                      &overrideRedirect);
    return window;
}

}

StartupMessenger::StartupMessenger(X11Connection& connection)
    : connection_(connection), sender_(makeSender(connection)) {
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    events_ = connection_.observe(
        lifetime_.guard([this](const xcb_generic_event_t& event) { handle(event); }));
}

StartupMessenger::~StartupMessenger() {
    xcb_destroy_window(connection_.get(), sender_);
}

std::string StartupMessenger::nextStartupID() {
    return "vireline-" + std::to_string(getpid()) + '-' + std::to_string(++launches_) + "_TIME" +
           std::to_string(connection_.userTime());
}

void StartupMessenger::broadcast(xdg::StartupMessage message) {
    if (message.kind == "new")
        message.values["SCREEN"] = std::to_string(connection_.screenNumber());
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = sender_;
    event.type = connection_.atom(beginName);
    for (const auto& chunk : xdg::StartupMessages::chunks(xdg::StartupMessages::text(message))) {
        std::ranges::copy(chunk, event.data.data8);
        sendEvent(connection_.get(), connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE, event);
        event.type = connection_.atom(continueName);
    }
    connection_.flush();
}

void StartupMessenger::handle(const xcb_generic_event_t& event) {
    if (eventType(event) != XCB_CLIENT_MESSAGE)
        return;
    const auto& message = as<xcb_client_message_event_t>(event);
    const bool isFirst = message.type == connection_.atom(beginName);
    if (message.format != 8 || (!isFirst && message.type != connection_.atom(continueName)))
        return;
    xdg::StartupMessages::Chunk chunk{};
    std::ranges::copy(message.data.data8, chunk.begin());
    const auto text = assembler_.take(message.window, isFirst, chunk);
    const auto parsed = text ? xdg::StartupMessages::parse(*text) : std::nullopt;
    if (parsed)
        messages_.notify(*parsed);
}

}
