/// Bounded waits for a condition. A test never sleeps for a length of time and hopes.
#pragma once

#include <chrono>
#include <thread>

namespace vireline::desktop {

/// How long a condition may take before the test gives it up. Generous, as only failures wait for
/// it: the machine may be busy and the program may run under sanitizers.
inline constexpr std::chrono::seconds patience{20};

/// Whether `condition` comes true within `limit`.
template <class Condition>
[[nodiscard]] bool eventually(const Condition& condition,
                              std::chrono::milliseconds limit = patience) {
    constexpr std::chrono::milliseconds interval{5};
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(interval);
    }
    return true;
}

}
