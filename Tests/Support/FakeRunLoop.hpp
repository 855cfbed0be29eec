/// A run loop on a virtual clock: time passes only when a test advances it, so delays take no real
/// time and are exact.
#pragma once

#include "Platform/RunLoop.hpp"

#include <cstdint>
#include <memory>
#include <vector>

namespace vireline::test {

class FakeRunLoop final : public RunLoop {
public:
    [[nodiscard]] double now() const override;
    [[nodiscard]] Timer after(double seconds, std::function<void()> fire) override;
    [[nodiscard]] Timer every(double seconds, std::function<void()> fire) override;

    /// Lets `seconds` pass and fires the due timers in time order, those of equal time in order of
    /// creation. Timers added by callbacks are included. `advance(0)` fires only what is due now,
    /// which simulates the loop's next turn.
    void advance(double seconds);

    /// Timers that will still fire.
    [[nodiscard]] int pendingTimers() const;

private:
    /// An integer, so that ten steps of 0.1 s are exactly one second.
    using Nanoseconds = std::int64_t;

    struct Entry {
        Nanoseconds due;
        /// 0 for a timer that fires once.
        Nanoseconds interval;
        std::function<void()> fire;
    };

    [[nodiscard]] Timer add(Nanoseconds delay, Nanoseconds interval, std::function<void()> fire);
    [[nodiscard]] std::shared_ptr<Entry> nextDue(Nanoseconds until);

    Nanoseconds now_ = 0;
    bool advancing_ = false;
    /// In order of creation.
    std::vector<std::weak_ptr<Entry>> entries_;
};

}
