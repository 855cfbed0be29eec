/// The list of windows that wlroots' compositors offer, on the fake compositor.
#pragma once

#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/RequestLog.hpp"

#include <cstdint>
#include <string>
#include <vector>

struct wl_resource;

namespace vireline::wayland {

class FakeToplevels {
public:
    /// Numbers of the protocol.
    enum class State : std::uint32_t { maximised = 0, minimised = 1, activated = 2 };

    explicit FakeToplevels(FakeCompositor& compositor);

    /// Adds a window and returns its number. Windows that are there before a client comes are
    /// listed with the newest first.
    std::size_t add(const std::string& appID, const std::string& title,
                    const std::vector<State>& states = {});
    void setStates(std::size_t window, const std::vector<State>& states);
    void setAppID(std::size_t window, const std::string& appID);
    void setTitle(std::size_t window, const std::string& title);
    void setParent(std::size_t window, std::size_t parent);
    void close(std::size_t window);
    /// Closes a window as soon as a client has been told about it.
    void closeOnceDescribed(std::size_t window);
    /// Announces no more windows.
    void finish();

    /// The client's requests to windows since the previous call, such as "0 set_minimized".
    [[nodiscard]] RequestLog::Requests requests() { return log_.take(); }

private:
    struct Window {
        std::string appID;
        std::string title;
        std::vector<State> states;
        wl_resource* handle = nullptr;
        bool closesOnceDescribed = false;
    };

    void bound(wl_resource* manager);
    void announce(std::size_t window);
    static void sendStates(const Window& window);

    FakeCompositor& compositor_;
    wl_resource* manager_ = nullptr;
    std::vector<Window> windows_;
    RequestLog log_{compositor_};
};

}
