/// Paces the frames of one window: the first after a while comes at once, the rest in step with the
/// display's refresh. Without a request nothing wakes up.
#pragma once

#include <QTimer>
#include <chrono>
#include <functional>

namespace vireline::x11 {

class FrameClock {
public:
    using Duration = std::chrono::steady_clock::duration;

    /// Calls `onFrame` for each frame that was asked for.
    explicit FrameClock(std::function<void()> onFrame);
    FrameClock(const FrameClock&) = delete;
    FrameClock& operator=(const FrameClock&) = delete;
    FrameClock(FrameClock&&) = delete;
    FrameClock& operator=(FrameClock&&) = delete;
    ~FrameClock() = default;

    /// Frames a second, as the display says; what no display can mean counts as 60.
    void setRefreshRate(double rate);

    /// Asks for one frame. Asking again before it came changes nothing.
    void request();

private:
    using Clock = std::chrono::steady_clock;

    std::function<void()> onFrame_;
    QTimer timer_;
    Duration interval_;
    /// When the last frame was due, whether or not it came in time.
    Clock::time_point lastDue_;
};

}
