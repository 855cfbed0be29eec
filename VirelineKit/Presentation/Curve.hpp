/// How a value moves to its target.
#pragma once

#include <ostream>

namespace vireline {

enum class Easing { easeOut, easeInOut };

struct Curve {
    /// Seconds, more than 0.
    double duration = 0;
    Easing easing = Easing::easeInOut;
    /// Back and forth for as long as the value keeps this curve.
    bool repeats = false;

    bool operator==(const Curve&) const = default;
};

/// How far the value has come, from 0 at the start to 1 at its target, `elapsed` seconds after it
/// set out: the Bézier curves with the control points (0, 0) and (0.58, 1) for `easeOut`, (0.42, 0)
/// and (0.58, 1) for `easeInOut`.
[[nodiscard]] double progress(const Curve& curve, double elapsed) noexcept;

/// Whether the value still moves then.
[[nodiscard]] bool isMoving(const Curve& curve, double elapsed) noexcept;

}
