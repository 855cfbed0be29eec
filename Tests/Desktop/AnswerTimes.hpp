/// How long a program's main loop takes to answer, asked the way in which window managers find out
/// whether a program still lives.
#pragma once

#include "VirtualDesktop/XClient.hpp"

#include <sys/types.h>

#include <array>
#include <chrono>

namespace vireline::desktop {

class AnswerTimes {
public:
    using Milliseconds = std::chrono::duration<double, std::milli>;

    /// `window` is one of the program's that understands _NET_WM_PING.
    AnswerTimes(const std::string& display, xcb_window_t window, pid_t program);

    /// Asks once, and waits for the answer. What the processes took part in it spent waiting for a
    /// processor that others had does not count. Throws when no answer comes.
    Milliseconds ask();

private:
    [[nodiscard]] bool isAnswered();
    [[nodiscard]] std::chrono::nanoseconds queueing() const;

    XClient client_;
    xcb_window_t window_;
    /// The program, this one, and the X server between them.
    std::array<pid_t, 3> processes_;
    xcb_timestamp_t question_ = 0;
};

}
