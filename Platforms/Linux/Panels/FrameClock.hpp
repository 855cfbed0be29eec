/// Paces the frames of one window: the first after a while comes at once, the rest in step with the
/// display's refresh. Without a request nothing wakes up.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <QElapsedTimer>
#include <QTimer>
#include <functional>
#include <memory>

namespace vireline::x11 {

class FrameClock {
public:
    FrameClock();
    FrameClock(const FrameClock&) = delete;
    FrameClock& operator=(const FrameClock&) = delete;
    FrameClock(FrameClock&&) = delete;
    FrameClock& operator=(FrameClock&&) = delete;
    ~FrameClock() = default;

    /// Frames a second, as the display says; what no display can mean counts as 60.
    void setRefreshRate(double rate);

    /// Calls `onFrame` once. A request before that replaces this one; dropping the handle ends it.
    [[nodiscard]] Timer request(std::function<void()> onFrame);

private:
    void fire();

    QTimer timer_;
    QElapsedTimer sinceLastFrame_;
    qint64 intervalMicroseconds_;
    std::weak_ptr<std::function<void()>> request_;
};

}
