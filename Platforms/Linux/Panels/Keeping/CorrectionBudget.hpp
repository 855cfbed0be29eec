/// How often something is corrected before the program gives up on it. What was left alone for a
/// while is put right as often again.
#pragma once

#include <chrono>
#include <optional>

namespace vireline::x11 {

class CorrectionBudget {
public:
    using Time = std::chrono::steady_clock::time_point;

    static constexpr int maximum = 8;
    /// An opponent answers sooner than this.
    static constexpr std::chrono::seconds quiet{1};

    /// Takes one correction; false if none is left. Also one that is refused counts as noise.
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
