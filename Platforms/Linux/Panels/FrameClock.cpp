#include "Panels/FrameClock.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace vireline::x11 {
namespace {

constexpr double usualRate = 60;
constexpr double slowestRate = 20;
constexpr double fastestRate = 500;

qint64 intervalOf(double rate) {
    return std::llround(1e6 / rate);
}

}

FrameClock::FrameClock() : intervalMicroseconds_(intervalOf(usualRate)) {
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { fire(); });
}

void FrameClock::setRefreshRate(double rate) {
    const bool isPlausible = rate >= slowestRate && rate <= fastestRate;
    intervalMicroseconds_ = intervalOf(isPlausible ? rate : usualRate);
}

Timer FrameClock::request(std::function<void()> onFrame) {
    auto request = std::make_shared<std::function<void()>>(std::move(onFrame));
    request_ = request;
    if (!timer_.isActive()) {
        const qint64 elapsed = sinceLastFrame_.isValid() ? sinceLastFrame_.nsecsElapsed() / 1000
                                                         : intervalMicroseconds_;
        const qint64 wait = std::max<qint64>(0, intervalMicroseconds_ - elapsed);
        // Qt counts milliseconds; rounding up keeps below the display's rate.
        timer_.start(std::chrono::milliseconds{(wait + 999) / 1000});
    }
    return Timer{std::move(request)};
}

void FrameClock::fire() {
    const auto request = std::exchange(request_, {}).lock();
    if (!request)
        return;
    sinceLastFrame_.start();
    (*request)();
}

}
