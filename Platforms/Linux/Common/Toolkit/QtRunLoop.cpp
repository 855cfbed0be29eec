#include "Toolkit/QtRunLoop.hpp"

#include "Foundation/Require.hpp"

#include <QTimerEvent>
#include <algorithm>

namespace vireline::xdg {
namespace {

using namespace std::chrono_literals;

/// Qt takes milliseconds as an int, so longer timers are re-armed in stretches of this length.
constexpr std::chrono::milliseconds longestStretch = 24h;

/// Clamps the delay, so that even a miscalculated one is never negative and can be added to the
/// current time without overflow.
std::chrono::nanoseconds duration(double seconds) {
    constexpr double hundredYears = 100.0 * 365 * 24 * 60 * 60;
    // NaN compares false and becomes zero.
    const double bounded = seconds > 0 ? std::min(seconds, hundredYears) : 0;
    return std::chrono::round<std::chrono::nanoseconds>(std::chrono::duration<double>{bounded});
}

}

double QtRunLoop::now() const {
    return std::chrono::duration<double>{Clock::now().time_since_epoch()}.count();
}

Timer QtRunLoop::after(double seconds, std::function<void()> fire) {
    return add(Clock::now() + duration(seconds), Nanoseconds::zero(), std::move(fire));
}

Timer QtRunLoop::every(double seconds, std::function<void()> fire) {
    require(seconds > 0, "a repeating timer has a positive interval");
    const auto interval = std::max<Nanoseconds>(duration(seconds), 1ms);
    return add(Clock::now() + interval, interval, std::move(fire));
}

Timer QtRunLoop::add(Clock::time_point due, Nanoseconds interval, std::function<void()> fire) {
    const std::uint64_t key = ++lastKey_;
    pending_.emplace(
        key, Pending{due, interval, std::make_shared<std::function<void()>>(std::move(fire))});
    arm(key);
    return Timer::calling(lifetime_.guard([this, key] { cancel(key); }));
}

void QtRunLoop::arm(std::uint64_t key) {
    Pending& timer = pending_.at(key);
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(timer.due - Clock::now());
    const auto stretch = std::clamp<std::chrono::milliseconds>(left, 0ms, longestStretch);
    timer.timerID = startTimer(stretch, Qt::PreciseTimer);
    keys_.emplace(timer.timerID, key);
}

void QtRunLoop::cancel(std::uint64_t key) {
    const auto timer = pending_.extract(key);
    if (timer.empty())
        return;
    killTimer(timer.mapped().timerID);
    keys_.erase(timer.mapped().timerID);
}

void QtRunLoop::timerEvent(QTimerEvent* event) {
    killTimer(event->timerId());
    const auto armed = keys_.extract(event->timerId());
    if (armed.empty())
        return;
    const std::uint64_t key = armed.mapped();
    Pending& timer = pending_.at(key);
    const auto now = Clock::now();
    if (now < timer.due) {
        arm(key);
        return;
    }
    // A copy, because the callback may destroy its own timer.
    const auto fire = timer.fire;
    if (timer.interval == Nanoseconds::zero()) {
        pending_.erase(key);
    } else {
        timer.due += timer.interval * ((now - timer.due) / timer.interval + 1);
        arm(key);
    }
    (*fire)();
}

}
