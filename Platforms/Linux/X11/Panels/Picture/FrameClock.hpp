/// Paces one window's frames: the first after a pause comes at once, the following ones at the
/// display's refresh rate. Idle without requests.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <QTimer>
#include <chrono>
#include <functional>

namespace vireline::x11 {

class FrameClock : private NonCopyable {
public:
    using Duration = std::chrono::steady_clock::duration;

    /// `onFrame` is called once per requested frame.
    explicit FrameClock(std::function<void()> onFrame);

    /// Frames per second, as the display reports; implausible values count as 60.
    void setRefreshRate(double rate);

    /// Requests one frame. Repeated requests before it comes have no effect.
    void request();

private:
    using Clock = std::chrono::steady_clock;

    std::function<void()> onFrame_;
    QTimer timer_;
    Duration interval_;
    /// When the last frame was due, regardless of when it came.
    Clock::time_point lastDue_;
};

}
