#include "AnswerTimes.hpp"

#include "VirtualDesktop/Processes/Waiting.hpp"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>

namespace vireline::desktop {
namespace {

using Clock = std::chrono::steady_clock;

/// The process at the other end of the client's socket.
pid_t serverOf(const XClient& client) {
    ucred peer{};
    socklen_t length = sizeof peer;
    if (getsockopt(xcb_get_file_descriptor(client.get()), SOL_SOCKET, SO_PEERCRED, &peer,
                   &length) != 0)
        throw std::runtime_error{"the X server does not say who it is"};
    return peer.pid;
}

}

AnswerTimes::AnswerTimes(const std::string& display, xcb_window_t window, pid_t program)
    : client_(display), window_(window), processes_{program, getpid(), serverOf(client_)} {
    // Qt sends its answers to clients that select this.
    const std::uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(client_.get(), client_.root(), XCB_CW_EVENT_MASK, &mask);
    client_.sync();
}

AnswerTimes::Milliseconds AnswerTimes::ask() {
    xcb_client_message_event_t ping{};
    ping.response_type = XCB_CLIENT_MESSAGE;
    ping.format = 32;
    ping.window = window_;
    ping.type = client_.atom("WM_PROTOCOLS");
    ping.data.data32[0] = client_.atom("_NET_WM_PING");
    ping.data.data32[1] = ++question_;
    ping.data.data32[2] = window_;

    const UndisturbedTime time{{processes_.begin(), processes_.end()}};
    const auto deadline = Clock::now() + conditionTimeout;
    sendEvent(client_.get(), window_, XCB_EVENT_MASK_NO_EVENT, ping);
    xcb_flush(client_.get());
    while (!isAnswered()) {
        if (Clock::now() > deadline)
            throw std::runtime_error{"the program does not answer"};
        pollfd readable{xcb_get_file_descriptor(client_.get()), POLLIN, 0};
        constexpr int limit = 1000;
        poll(&readable, 1, limit);
    }
    return time.elapsed();
}

bool AnswerTimes::isAnswered() {
    while (const auto event = client_.pollEvent()) {
        if (eventType(*event) != XCB_CLIENT_MESSAGE)
            continue;
        const auto& message = as<xcb_client_message_event_t>(*event);
        if (message.window == client_.root() && message.data.data32[1] == question_)
            return true;
    }
    return false;
}

}
