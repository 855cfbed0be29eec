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
/// set out. Cubic curves, the usual stand-ins for the Bézier curves of CSS Easing Functions
/// Level 1.
[[nodiscard]] double progress(const Curve& curve, double elapsed) noexcept;

/// Whether the value still moves then.
[[nodiscard]] bool isMoving(const Curve& curve, double elapsed) noexcept;

}
