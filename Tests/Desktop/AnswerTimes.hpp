/// Measures how long a program's main loop takes to answer, with the ping that window managers use
/// to detect hung programs.
#pragma once

#include "VirtualDesktop/Processes/ProcessFigures.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <sys/types.h>

#include <array>
#include <chrono>

namespace vireline::desktop {

class AnswerTimes {
public:
    using Milliseconds = UndisturbedTime::Milliseconds;

    /// `window` must be one of the program's that supports _NET_WM_PING.
    AnswerTimes(const std::string& display, xcb_window_t window, pid_t program);

    /// Pings once and waits for the answer. Time that the participating processes spent waiting for
    /// a busy processor is subtracted. Throws if there is no answer.
    Milliseconds ask();

private:
    [[nodiscard]] bool isAnswered();

    XClient client_;
    xcb_window_t window_;
    /// The program, this process, and the X server between them.
    std::array<pid_t, 3> processes_;
    xcb_timestamp_t question_ = 0;
};

}
