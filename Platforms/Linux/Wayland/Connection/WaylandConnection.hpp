/// The compositor's globals on one connection. Whatever is bound here is dispatched on the main
/// thread: by Qt on its connection, and otherwise by `OwnConnection`.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/CallbackList.hpp"
#include "Foundation/NonCopyable.hpp"

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

struct wl_interface;

namespace vireline::wayland {

class WaylandConnection : private NonCopyable {
public:
    /// Waits for the compositor to list its globals; if the connection is broken, there are none.
    /// `display` must outlive this object.
    explicit WaylandConnection(wl_display* display);

    [[nodiscard]] wl_display* display() const noexcept { return display_; }

    /// The offered version of an interface, 0 if the compositor has no such global.
    [[nodiscard]] std::uint32_t offered(std::string_view interface) const;

    /// Binds the global in the newest version that both sides know; null if there is none. Its
    /// events are in the display's default queue.
    template <class Object>
    [[nodiscard]] Proxy<Object> bind(const wl_interface& interface, std::uint32_t newest) const {
        return Proxy<Object>{static_cast<Object*>(bindFirst(interface, newest))};
    }

    /// The compositor's numbers of all globals of an interface.
    [[nodiscard]] std::vector<std::uint32_t> numbers(std::string_view interface) const;

    /// Binds one global by its number, otherwise as `bind`.
    template <class Object>
    [[nodiscard]] Proxy<Object> bindNumber(std::uint32_t number, const wl_interface& interface,
                                           std::uint32_t newest) const {
        return Proxy<Object>{static_cast<Object*>(bindGlobal(number, interface, newest))};
    }

    /// Calls `handler` after a global came or went.
    [[nodiscard]] Subscription observe(std::function<void()> handler) {
        return observers_.add(std::move(handler));
    }

    /// The compositor's process; 0 if unknown.
    [[nodiscard]] pid_t compositor() const;

    /// Sends what has been requested so far.
    void flush() const;

private:
    struct Global {
        std::string interface;
        std::uint32_t version = 0;
    };
    struct Events;

    [[nodiscard]] void* bindFirst(const wl_interface& interface, std::uint32_t newest) const;
    [[nodiscard]] void* bindGlobal(std::uint32_t number, const wl_interface& interface,
                                   std::uint32_t newest) const;
    void readGlobals();

    wl_display* display_;
    Proxy<wl_registry> registry_;
    /// The globals by the compositor's numbers.
    std::map<std::uint32_t, Global> globals_;
    CallbackList<> observers_;
};

}
