/// How a value is animated towards its target.
#pragma once

#include <ostream>

namespace vireline {

enum class Easing { easeOut, easeInOut };

struct Curve {
    /// Seconds, more than 0.
    double duration = 0;
    Easing easing = Easing::easeInOut;
    /// Goes back and forth for as long as the value has this curve.
    bool repeats = false;

    bool operator==(const Curve&) const = default;
};

/// The progress, from 0 at the start to 1 at the target, `elapsed` seconds after the start. The
/// Bézier curves have the control points (0, 0) and (0.58, 1) for `easeOut`, (0.42, 0) and (0.58,
/// 1) for `easeInOut`.
[[nodiscard]] double progress(const Curve& curve, double elapsed) noexcept;

/// Whether the value is still moving `elapsed` seconds after the start.
[[nodiscard]] bool isMoving(const Curve& curve, double elapsed) noexcept;

}
