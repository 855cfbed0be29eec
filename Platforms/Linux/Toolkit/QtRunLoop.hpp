/// The kit's clock and timers on Qt's event loop. Without a pending timer nothing wakes up.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Platform/RunLoop.hpp"

#include <QObject>
#include <chrono>
#include <memory>
#include <unordered_map>

namespace vireline::x11 {

/// Repeating timers keep their pace: a late firing does not move those after it, and one that was
/// missed whole, as in sleep, is skipped.
class QtRunLoop final : public RunLoop, private QObject {
public:
    QtRunLoop() = default;
    QtRunLoop(const QtRunLoop&) = delete;
    QtRunLoop& operator=(const QtRunLoop&) = delete;
    QtRunLoop(QtRunLoop&&) = delete;
    QtRunLoop& operator=(QtRunLoop&&) = delete;
    ~QtRunLoop() override = default;

    [[nodiscard]] double now() const override;
    [[nodiscard]] Timer after(double seconds, std::function<void()> fire) override;
    /// `seconds` must be positive; less than a millisecond counts as one.
    [[nodiscard]] Timer every(double seconds, std::function<void()> fire) override;

private:
    using Clock = std::chrono::steady_clock;
    using Nanoseconds = std::chrono::nanoseconds;

    struct Pending {
        Clock::time_point due;
        /// Zero for a timer that fires once.
        Nanoseconds interval;
        std::shared_ptr<std::function<void()>> fire;
        /// Qt's number for it. One that is due far ahead is armed several times in a row.
        int timerID = 0;
    };

    Timer add(Clock::time_point due, Nanoseconds interval, std::function<void()> fire);
    void arm(std::uint64_t key);
    void cancel(std::uint64_t key);
    void timerEvent(QTimerEvent* event) override;

    std::uint64_t lastKey_ = 0;
    std::unordered_map<std::uint64_t, Pending> pending_;
    /// The key of the pending timer behind each of Qt's numbers.
    std::unordered_map<int, std::uint64_t> keys_;
    Lifetime lifetime_;
};

}
