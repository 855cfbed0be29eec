/// The main thread's clock and timers. All program logic runs on this one loop.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline {

class RunLoop {
public:
    virtual ~RunLoop() = default;

    /// Seconds on a monotonic clock; the origin is arbitrary.
    [[nodiscard]] virtual double now() const = 0;

    /// Calls `fire` once, `seconds` from now; 0 means in the loop's next turn, never immediately.
    /// Destroying the timer cancels it.
    [[nodiscard]] virtual Timer after(double seconds, std::function<void()> fire) = 0;

    /// Calls `fire` every `seconds`, the first time after one interval, until the timer is
    /// destroyed.
    [[nodiscard]] virtual Timer every(double seconds, std::function<void()> fire) = 0;
};

}
