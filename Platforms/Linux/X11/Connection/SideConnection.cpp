#include "Connection/SideConnection.hpp"

#include <poll.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <utility>

namespace vireline::x11 {

Result<std::unique_ptr<SideConnection>> SideConnection::open() {
    auto server = XServer::connect();
    if (!server)
        return std::unexpected{server.error()};
    return std::unique_ptr<SideConnection>{new SideConnection{*std::move(server)}};
}

SideConnection::SideConnection(XServer server)
    : server_(std::move(server))
    , notifier_(xcb_get_file_descriptor(server_.connection()), QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, &context_, [this] { dispatch(); });
}

SideConnection::Deadline SideConnection::in(double seconds) {
    using Clock = std::chrono::steady_clock;
    return Clock::now() +
           std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>{seconds});
}

void SideConnection::sync(Deadline deadline) {
    static_cast<void>(reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus(get()), deadline));
}

void* SideConnection::wait(unsigned int sequence, Deadline deadline) {
    using std::chrono::milliseconds;
    flush();
    void* answer = nullptr;
    while (true) {
        xcb_generic_error_t* error = nullptr;
        const bool isAnswered = xcb_poll_for_reply(get(), sequence, &answer, &error) != 0;
        const Owned<xcb_generic_error_t> refusal{error};
        if (isAnswered)
            break;
        const auto left =
            std::chrono::ceil<milliseconds>(deadline - std::chrono::steady_clock::now());
        if (left <= milliseconds::zero()) {
            xcb_discard_reply(get(), sequence);
            break;
        }
        pollfd readable{xcb_get_file_descriptor(get()), POLLIN, 0};
        poll(&readable, 1, static_cast<int>(std::min<milliseconds::rep>(left.count(), 1000)));
    }
    keepReceived();
    return answer;
}

void SideConnection::awaitReply(unsigned int sequence, std::function<void(Owned<void>)> handler) {
    awaited_.push_back({sequence, std::move(handler)});
    flush();
}

/// The socket will not signal again what was read along with a reply.
void SideConnection::keepReceived() {
    keepQueuedEvents();
    if ((events_.empty() && awaited_.empty()) || std::exchange(isDispatchDue_, true))
        return;
    QMetaObject::invokeMethod(&context_, [this] { dispatch(); }, Qt::QueuedConnection);
}

void SideConnection::keepQueuedEvents() {
    while (Owned<xcb_generic_event_t> event{xcb_poll_for_queued_event(get())})
        events_.push_back(std::move(event));
}

void SideConnection::dispatch() {
    isDispatchDue_ = false;
    while (Owned<xcb_generic_event_t> event{xcb_poll_for_event(get())})
        events_.push_back(std::move(event));
    // A closed connection stays readable forever.
    if (xcb_connection_has_error(get()) != 0) {
        notifier_.setEnabled(false);
        awaited_.clear();
    }
    dispatchReplies();
    // Looking for replies may have read more events.
    keepQueuedEvents();
    dispatchEvents();
}

void SideConnection::dispatchEvents() {
    if (events_.empty())
        return;
    for (const auto& event : std::exchange(events_, {})) {
        if (onEvent)
            onEvent(*event);
    }
    if (onRest)
        onRest();
}

void SideConnection::dispatchReplies() {
    while (!awaited_.empty()) {
        void* reply = nullptr;
        xcb_generic_error_t* error = nullptr;
        if (xcb_poll_for_reply(get(), awaited_.front().sequence, &reply, &error) == 0)
            break;
        const Owned<xcb_generic_error_t> refusal{error};
        const auto handler = std::move(awaited_.front().handler);
        awaited_.pop_front();
        handler(Owned<void>{reply});
    }
}

}
