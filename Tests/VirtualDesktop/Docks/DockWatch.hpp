/// Detects docks as they appear, through events, so that measuring does not slow the program down.
#pragma once

#include "VirtualDesktop/Screen/XClient.hpp"

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

    /// Starts watching.
    explicit DockWatch(const std::string& display);

    /// Any client's windows of type dock, in the order in which they appeared, once there are
    /// `count` of them. Throws after the timeout.
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
