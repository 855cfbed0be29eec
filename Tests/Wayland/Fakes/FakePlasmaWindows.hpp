/// The list of windows that KWin offers, on the fake compositor.
#pragma once

#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/RequestLog.hpp"

#include <cstdint>
#include <string>
#include <vector>

struct wl_resource;

namespace vireline::wayland {

class FakePlasmaWindows {
public:
    /// Flags of the protocol.
    static constexpr std::uint32_t active = 1;
    static constexpr std::uint32_t minimised = 2;
    static constexpr std::uint32_t maximised = 4;
    static constexpr std::uint32_t urgent = 1U << 7U;
    static constexpr std::uint32_t skipped = 1U << 12U;

    explicit FakePlasmaWindows(FakeCompositor& compositor, int version = 16);

    /// Adds a window and returns its number, which is also its UUID. `isComplete` is whether the
    /// description is finished.
    std::size_t add(const std::string& appID, std::uint32_t flags = 0, bool isComplete = true);
    /// From the lowest window to the topmost, separated by semicolons; told to clients that come.
    void setStacking(const std::string& uuids);
    void setFlags(std::size_t window, std::uint32_t flags);
    void setAppID(std::size_t window, const std::string& appID);
    void setTitle(std::size_t window, const std::string& title);
    void setParent(std::size_t window, std::size_t parent);
    void setFrame(std::size_t window, int x, int y, int width, int height);
    void complete(std::size_t window);
    void close(std::size_t window);
    /// Closes a window as soon as a client has been told about it.
    void closeOnceDescribed(std::size_t window);

    /// The client's requests to windows since the previous call, such as "0 close".
    [[nodiscard]] RequestLog::Requests requests() { return log_.take(); }

private:
    struct Window {
        std::string appID;
        std::uint32_t flags = 0;
        bool isComplete = true;
        wl_resource* handle = nullptr;
        bool closesOnceDescribed = false;
    };

    void bound(wl_resource* manager);
    void announce(std::size_t window);
    void describe(std::size_t window, wl_resource* handle);
    /// Sends an event of a window.
    template <class... Values>
    void send(std::size_t window, std::uint32_t event, Values... values);

    FakeCompositor& compositor_;
    wl_resource* manager_ = nullptr;
    std::string stacking_;
    std::vector<Window> windows_;
    RequestLog log_{compositor_};
};

}
