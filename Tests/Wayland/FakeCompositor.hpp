/// A compositor in a thread of this process that only offers globals; what they do is left to who
/// offers them.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"

#include <functional>
#include <memory>
#include <thread>

struct wl_interface;
struct wl_resource;

namespace vireline::wayland {

class FakeCompositor : private NonCopyable {
public:
    FakeCompositor();
    ~FakeCompositor();

    /// Called in the compositor's thread with each object that a client binds.
    using Bound = std::function<void(wl_resource*)>;

    void offer(const wl_interface& interface, int version, Bound onBound = {});
    void withdraw(const wl_interface& interface);
    /// Ends all connections, as a compositor that dies.
    void die();

    /// A client's connection to it.
    [[nodiscard]] Proxy<wl_display> connect();

    /// The version in which a client has bound a global of this interface; 0 if none has.
    [[nodiscard]] int boundVersion(const wl_interface& interface);

    /// Runs `task` in the compositor's thread, and waits until that is done.
    void run(const std::function<void()>& task);

private:
    void serve();

    struct Server;
    std::unique_ptr<Server> server_;
    std::thread thread_;
};

}
