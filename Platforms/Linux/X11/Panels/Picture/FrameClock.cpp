#include "Panels/Picture/FrameClock.hpp"

#include <algorithm>
#include <utility>

namespace vireline::x11 {
namespace {

constexpr double usualRate = 60;
constexpr double slowestRate = 20;
constexpr double fastestRate = 500;

FrameClock::Duration intervalOf(double rate) {
    return std::chrono::round<FrameClock::Duration>(std::chrono::duration<double>{1 / rate});
}

}

FrameClock::FrameClock(std::function<void()> onFrame)
    : onFrame_(std::move(onFrame)), interval_(intervalOf(usualRate)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { onFrame_(); });
}

void FrameClock::setRefreshRate(double rate) {
    const bool isPlausible = rate >= slowestRate && rate <= fastestRate;
    interval_ = intervalOf(isPlausible ? rate : usualRate);
}

/// Measured from when the last frame was due rather than when it came, so that consecutive frames
/// stay in step with the display despite late timers and Qt's whole milliseconds.
void FrameClock::request() {
    if (timer_.isActive())
        return;
    const auto now = Clock::now();
    const auto due = lastDue_ + interval_;
    lastDue_ = std::max(due, now);
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(lastDue_ - now);
    timer_.start(std::max(wait, std::chrono::milliseconds{0}));
}

}
