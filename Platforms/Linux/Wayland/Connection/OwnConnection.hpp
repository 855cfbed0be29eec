/// A connection to the compositor beside Qt's, for the docks. Qt's plugin wakes two threads for
/// each event; here the main thread reads, and while the pointer moves, once per frame.
#pragma once

#include "Connection/Proxies.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QSocketNotifier>
#include <QTimer>
#include <chrono>
#include <functional>
#include <memory>

namespace vireline::wayland {

class OwnConnection : private NonCopyable {
public:
    /// Null if the compositor accepts no connection.
    [[nodiscard]] static std::unique_ptr<OwnConnection> open();

    /// Needs an event loop. A broken connection is reported in the same way as Qt reports its own.
    explicit OwnConnection(Proxy<wl_display> display);

    [[nodiscard]] WaylandConnection& globals() noexcept { return globals_; }

    /// Leaves events unread for `duration`, so that they are handled together.
    void pause(std::chrono::milliseconds duration);
    /// Limits what is left of a pause to `longest`.
    void shortenPause(std::chrono::milliseconds longest);

    /// Calls `handler` after events have been handled.
    [[nodiscard]] Subscription observeReads(std::function<void()> handler) {
        return readObservers_.add(std::move(handler));
    }

private:
    void read();
    [[nodiscard]] bool readWhatHasArrived();

    Proxy<wl_display> display_;
    WaylandConnection globals_;
    QSocketNotifier readable_;
    QTimer pause_;
    CallbackList<> readObservers_;
};

}
