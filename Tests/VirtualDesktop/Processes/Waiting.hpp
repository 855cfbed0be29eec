/// Waits for conditions, with a timeout. Tests never sleep for a fixed time instead.
#pragma once

#include <chrono>
#include <stdexcept>
#include <thread>

namespace vireline::desktop {

/// Timeout for conditions. Generous, because the machine may be busy and the program may run under
/// sanitizers; only failures wait this long.
inline constexpr std::chrono::seconds conditionTimeout{20};

/// Whether `condition` becomes true within `limit`.
template <class Condition>
[[nodiscard]] bool eventually(const Condition& condition,
                              std::chrono::milliseconds limit = conditionTimeout,
                              std::chrono::milliseconds interval = std::chrono::milliseconds{5}) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(interval);
    }
    return true;
}

/// Milliseconds from `start` until `condition` is true. Throws if it does not become so in time.
template <class Condition>
double timeUntil(std::chrono::steady_clock::time_point start, const Condition& condition) {
    // Pauses would show in the figures.
    constexpr std::chrono::milliseconds interval{0};
    if (!eventually(condition, conditionTimeout, interval))
        throw std::runtime_error{"timed out waiting for the measured event"};
    return std::chrono::duration<double, std::milli>{std::chrono::steady_clock::now() - start}
        .count();
}

}
