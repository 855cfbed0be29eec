/// A connection to the X server of its own, for what must not wait long or must end without a
/// trace: nobody else reads from it, so that waiting for an answer has a limit, and all that was
/// asked for on it ends with it.
#pragma once

#include "Foundation/Result.hpp"
#include "X11/X11Connection.hpp"
#include "X11/XServer.hpp"

#include <xcb/xcb.h>

#include <QObject>
#include <QSocketNotifier>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>

namespace vireline::x11 {

class SideConnection {
public:
    using Deadline = std::chrono::steady_clock::time_point;

    /// Fails when the server lets nobody in any more.
    [[nodiscard]] static Result<std::unique_ptr<SideConnection>> open();

    SideConnection(const SideConnection&) = delete;
    SideConnection& operator=(const SideConnection&) = delete;
    SideConnection(SideConnection&&) = delete;
    SideConnection& operator=(SideConnection&&) = delete;
    ~SideConnection() = default;

    [[nodiscard]] xcb_connection_t* get() const noexcept { return server_.connection(); }
    [[nodiscard]] xcb_window_t root() const noexcept { return server_.root(); }

    /// A deadline this long from now.
    [[nodiscard]] static Deadline in(double seconds);

    /// The answer to a request on this connection; null when the server refuses it or does not
    /// answer in time.
    template <class Reply, class Cookie>
    [[nodiscard]] Owned<Reply> reply(Cookie cookie, Deadline deadline) {
        return Owned<Reply>{static_cast<Reply*>(wait(cookie.sequence, deadline))};
    }

    void flush() const { xcb_flush(get()); }

    /// Returns once the server has carried out all requests on this connection so far, or the
    /// deadline has passed.
    void sync(Deadline deadline);

    /// Receives every event, in a turn of the event loop; then, once for all that came together,
    /// `onRest` is called. Neither may end this connection.
    std::function<void(const xcb_generic_event_t&)> onEvent;
    std::function<void()> onRest;

private:
    explicit SideConnection(XServer server);

    [[nodiscard]] void* wait(unsigned int sequence, Deadline deadline);
    void keepEvents();
    void dispatch();

    XServer server_;
    /// Events that came along with answers: the descriptor knows nothing of them any more.
    std::deque<Owned<xcb_generic_event_t>> events_;
    bool isDispatchDue_ = false;
    QSocketNotifier notifier_;
    /// Ends queued calls with this object.
    QObject context_;
};

}
