/// The main thread's clock and timers. All program logic runs on this one loop.
#pragma once

#include "Foundation/ScopedHandle.hpp"

#include <functional>

namespace vireline {

class RunLoop {
public:
    virtual ~RunLoop() = default;

    /// Seconds on a clock that never goes backwards; the origin is arbitrary.
    [[nodiscard]] virtual double now() const = 0;

    /// Calls `fire` once, `seconds` from now; 0 means the loop's next turn, never at once.
    /// Dropping the timer cancels it.
    [[nodiscard]] virtual Timer after(double seconds, std::function<void()> fire) = 0;

    /// Calls `fire` every `seconds`, first after one such interval, until the timer is dropped.
    [[nodiscard]] virtual Timer every(double seconds, std::function<void()> fire) = 0;
};

}
