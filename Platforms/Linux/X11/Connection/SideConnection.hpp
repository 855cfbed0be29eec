/// A separate connection to the X server, for work with a time limit or that must be undone
/// completely: it has a single reader, so waiting for a reply can time out, and everything
/// requested on it ends with it.
#pragma once

#include "Connection/X11Connection.hpp"
#include "Connection/XServer.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/Result.hpp"

#include <xcb/xcb.h>

#include <QObject>
#include <QSocketNotifier>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <utility>

namespace vireline::x11 {

class SideConnection : private NonCopyable {
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// Fails if the server refuses another connection.
    [[nodiscard]] static Result<std::unique_ptr<SideConnection>> open();

    [[nodiscard]] xcb_connection_t* get() const noexcept { return server_.connection(); }
    [[nodiscard]] xcb_window_t root() const noexcept { return server_.root(); }

    /// The deadline this many seconds from now.
    [[nodiscard]] static Deadline in(double seconds);

    /// The reply to a request on this connection; null on an error or if the deadline passes.
    template <class Reply, class Cookie>
    [[nodiscard]] Owned<Reply> reply(Cookie cookie, Deadline deadline) {
        return Owned<Reply>{static_cast<Reply*>(wait(cookie.sequence, deadline))};
    }

    /// Calls `handler` from the event loop with the reply to a request on this connection, or with
    /// null on an error. Replies are passed on in the order of the requests. Not called if the
    /// server is lost. The handler must not destroy this connection.
    template <class Reply, class Cookie>
    void whenReplied(Cookie cookie, std::function<void(const Owned<Reply>&)> handler) {
        awaitReply(cookie.sequence, [handler = std::move(handler)](Owned<void> reply) {
            handler(Owned<Reply>{static_cast<Reply*>(reply.release())});
        });
    }

    void flush() const { xcb_flush(get()); }

    /// Blocks until the server has processed all requests on this connection so far, or the
    /// deadline passes.
    void sync(Deadline deadline);

    /// Called from the event loop for every event; `onRest` is called once after each batch.
    /// Neither may destroy this connection.
    std::function<void(const xcb_generic_event_t&)> onEvent;
    std::function<void()> onRest;

private:
    explicit SideConnection(XServer server);

    struct AwaitedReply {
        unsigned int sequence = 0;
        std::function<void(Owned<void>)> handler;
    };

    [[nodiscard]] void* wait(unsigned int sequence, Deadline deadline);
    void awaitReply(unsigned int sequence, std::function<void(Owned<void>)> handler);
    void keepReceived();
    void keepQueuedEvents();
    void dispatch();
    void dispatchEvents();
    void dispatchReplies();

    XServer server_;
    /// Events that arrived along with replies; the socket will not signal them again.
    std::deque<Owned<xcb_generic_event_t>> events_;
    std::deque<AwaitedReply> awaited_;
    bool isDispatchDue_ = false;
    QSocketNotifier notifier_;
    /// Owns the queued calls, which end with this object.
    QObject context_;
};

}
