/// A compositor in a thread of this process. It only offers globals; tests implement them.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"

#include <functional>
#include <memory>
#include <thread>

struct wl_client;
struct wl_interface;
struct wl_resource;

namespace vireline::wayland {

class FakeCompositor : private NonCopyable {
public:
    FakeCompositor();
    ~FakeCompositor();

    /// Called in the compositor's thread with each object that a client binds.
    using Bound = std::function<void(wl_resource*)>;

    /// There can be several globals of an interface.
    void offer(const wl_interface& interface, int version, Bound onBound = {});
    /// Withdraws the one that was offered last.
    void withdraw(const wl_interface& interface);
    /// Ends all connections, as a compositor that dies.
    void die();

    /// Offers shared memory, as libwayland implements it.
    void offerMemory();

    /// A client's connection to it.
    [[nodiscard]] Proxy<wl_display> connect();
    /// The client's end of such a connection, which the caller owns.
    [[nodiscard]] int makeSocket();

    /// Whether that client was the first to connect. To be called in the compositor's thread.
    [[nodiscard]] bool isFirst(const wl_client* client) const;

    /// The version in which a client has bound a global of this interface, the one that was offered
    /// last; 0 if none has.
    [[nodiscard]] int boundVersion(const wl_interface& interface);

    /// Runs `task` in the compositor's thread, and waits until that is done.
    void run(const std::function<void()>& task);
    /// The same, and waits until all events of `events` have been sent, together. What has been
    /// sent can be read at once.
    void send(const std::function<void()>& events);

private:
    void serve();

    struct Server;
    std::unique_ptr<Server> server_;
    std::thread thread_;
};

}
