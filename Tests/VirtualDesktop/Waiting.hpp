/// Waits for conditions, with a timeout. Tests never sleep for a fixed time instead.
#pragma once

#include <chrono>
#include <thread>

namespace vireline::desktop {

/// Timeout for conditions. Generous, because the machine may be busy and the program may run under
/// sanitizers; only failures wait this long.
inline constexpr std::chrono::seconds conditionTimeout{20};

/// Whether `condition` becomes true within `limit`.
template <class Condition>
[[nodiscard]] bool eventually(const Condition& condition,
                              std::chrono::milliseconds limit = conditionTimeout) {
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
