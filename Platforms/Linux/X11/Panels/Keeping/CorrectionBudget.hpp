/// Limits how often something is corrected before the program gives up. Refilled after a quiet
/// period.
#pragma once

#include <chrono>
#include <optional>

namespace vireline::x11 {

class CorrectionBudget {
public:
    using Time = std::chrono::steady_clock::time_point;

    static constexpr int maximum = 8;
    /// Longer than any opponent takes to undo a correction.
    static constexpr std::chrono::seconds quiet{1};

    /// Uses up one correction; returns false if none is left. A refused one also ends the quiet
    /// period.
    [[nodiscard]] bool take(Time now) noexcept {
        if (last_ && now - *last_ > quiet)
            left_ = maximum;
        last_ = now;
        if (left_ == 0)
            return false;
        --left_;
        return true;
    }

    void refill() noexcept { left_ = maximum; }

private:
    int left_ = maximum;
    std::optional<Time> last_;
};

}
