/// The kit's clock and timers on Qt's event loop. Never wakes up without a pending timer.
#pragma once

#include "Foundation/Lifetime.hpp"
#include "Platform/RunLoop.hpp"

#include <QObject>
#include <chrono>
#include <memory>
#include <unordered_map>

namespace vireline::xdg {

/// Repeating timers do not drift: a late firing does not delay the later ones, and firings missed
/// entirely, for example during sleep, are skipped.
class QtRunLoop final : public RunLoop, private QObject {
public:
    [[nodiscard]] double now() const override;
    [[nodiscard]] Timer after(double seconds, std::function<void()> fire) override;
    /// `seconds` must be positive; anything below a millisecond is rounded up to one.
    [[nodiscard]] Timer every(double seconds, std::function<void()> fire) override;

private:
    using Clock = std::chrono::steady_clock;
    using Nanoseconds = std::chrono::nanoseconds;

    struct Pending {
        Clock::time_point due;
        /// Zero for one-shot timers.
        Nanoseconds interval;
        std::shared_ptr<std::function<void()>> fire;
        /// Qt's timer ID. Changes when a distant timer is re-armed.
        int timerID = 0;
    };

    Timer add(Clock::time_point due, Nanoseconds interval, std::function<void()> fire);
    void arm(std::uint64_t key);
    void cancel(std::uint64_t key);
    void timerEvent(QTimerEvent* event) override;

    std::uint64_t lastKey_ = 0;
    std::unordered_map<std::uint64_t, Pending> pending_;
    /// Maps Qt's timer IDs to the keys of pending timers.
    std::unordered_map<int, std::uint64_t> keys_;
    Lifetime lifetime_;
};

}
