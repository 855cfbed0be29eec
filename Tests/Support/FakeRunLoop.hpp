/// A run loop on a virtual clock: time passes only when a test advances it, so a delay costs
/// nothing and ends at exactly its time.
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

    /// Lets `seconds` pass and fires what falls due, in time order; at equal times the timer that
    /// was made first. What a callback adds counts too if it falls due before the end. With 0 only
    /// what is due now fires, which is how a test takes the loop's next turn.
    void advance(double seconds);

    /// Timers that will still fire.
    [[nodiscard]] int pendingTimers() const;

private:
    /// Whole numbers, so that ten steps of 0.1 s make exactly one second.
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
    /// In the order of their making.
    std::vector<std::weak_ptr<Entry>> entries_;
};

}
