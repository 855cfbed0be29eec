/// Sees docks appear, by events, so that watching costs the program that shows them nothing.
#pragma once

#include "VirtualDesktop/XClient.hpp"

#include <chrono>
#include <string>
#include <vector>

namespace vireline::desktop {

class DockWatch {
public:
    using Clock = std::chrono::steady_clock;

    struct Shown {
        xcb_window_t window = XCB_NONE;
        Clock::time_point when;
    };

    /// From now on.
    explicit DockWatch(const std::string& display);

    /// Anybody's windows of type dock in the order in which they came, once there are `count` of
    /// them. Throws when they do not come.
    [[nodiscard]] const std::vector<Shown>& waitForDocks(std::size_t count);

private:
    void waitForEvents();
    void handle(const xcb_generic_event_t& event);
    void note(xcb_window_t window, Clock::time_point now);
    void listen(xcb_window_t window, std::uint32_t events) const;
    [[nodiscard]] bool isDock(xcb_window_t window) const;

    XClient client_;
    std::vector<Shown> docks_;
};

}
