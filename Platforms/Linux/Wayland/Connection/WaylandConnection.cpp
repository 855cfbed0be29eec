#include "Connection/WaylandConnection.hpp"

#include <sys/socket.h>
#include <wayland-client.h>

#include <algorithm>

namespace vireline::wayland {

/// What the registry reports.
struct WaylandConnection::Events {
    static void came(void* data, wl_registry* /*registry*/, std::uint32_t name,
                     const char* interface, std::uint32_t version) {
        auto& self = *static_cast<WaylandConnection*>(data);
        self.globals_[name] = {interface, version};
        self.observers_.notify();
    }

    static void went(void* data, wl_registry* /*registry*/, std::uint32_t name) {
        auto& self = *static_cast<WaylandConnection*>(data);
        self.globals_.erase(name);
        self.observers_.notify();
    }

    static constexpr wl_registry_listener listener{.global = came, .global_remove = went};
};

WaylandConnection::WaylandConnection(wl_display* display) : display_(display) {
    readGlobals();
}

/// On a queue of its own, so that this dispatches no events of other objects.
void WaylandConnection::readGlobals() {
    wl_event_queue* const queue = wl_display_create_queue(display_);
    auto* const wrapper = static_cast<wl_display*>(wl_proxy_create_wrapper(display_));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(wrapper), queue);
    registry_.reset(wl_display_get_registry(wrapper));
    wl_proxy_wrapper_destroy(wrapper);
    wl_registry_add_listener(registry_.get(), &Events::listener, this);
    wl_display_roundtrip_queue(display_, queue);
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(registry_.get()), nullptr);
    // Qt reads the connection in a thread of its own, which may have queued more meanwhile.
    wl_display_dispatch_queue_pending(display_, queue);
    wl_event_queue_destroy(queue);
}

std::uint32_t WaylandConnection::offered(std::string_view interface) const {
    const auto found = std::ranges::find_if(
        globals_, [&](const auto& entry) { return entry.second.interface == interface; });
    return found == globals_.end() ? 0 : found->second.version;
}

std::vector<std::uint32_t> WaylandConnection::numbers(std::string_view interface) const {
    std::vector<std::uint32_t> found;
    for (const auto& [number, global] : globals_) {
        if (global.interface == interface)
            found.push_back(number);
    }
    return found;
}

void* WaylandConnection::bindFirst(const wl_interface& interface, std::uint32_t newest) const {
    const auto all = numbers(interface.name);
    return all.empty() ? nullptr : bindGlobal(all.front(), interface, newest);
}

void* WaylandConnection::bindGlobal(std::uint32_t number, const wl_interface& interface,
                                    std::uint32_t newest) const {
    const auto found = globals_.find(number);
    if (found == globals_.end())
        return nullptr;
    const auto known = static_cast<std::uint32_t>(interface.version);
    return wl_registry_bind(registry_.get(), number, &interface,
                            std::min({found->second.version, newest, known}));
}

pid_t WaylandConnection::compositor() const {
    ucred credentials{};
    socklen_t size = sizeof credentials;
    const bool isKnown =
        getsockopt(wl_display_get_fd(display_), SOL_SOCKET, SO_PEERCRED, &credentials, &size) == 0;
    return isKnown ? credentials.pid : 0;
}

void WaylandConnection::flush() const {
    wl_display_flush(display_);
}

}
