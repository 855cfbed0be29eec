#include "Presentation/Curve.hpp"

#include <algorithm>
#include <cmath>

namespace vireline {
namespace {

/// One coordinate of a cubic Bézier curve from 0 to 1, as a polynomial of its parameter.
class Polynomial {
public:
    constexpr Polynomial(double first, double second) noexcept
        : linear_(3 * first), square_(3 * second - 6 * first), cube_(1 - 3 * second + 3 * first) {}

    [[nodiscard]] constexpr double at(double s) const noexcept {
        return ((cube_ * s + square_) * s + linear_) * s;
    }
    [[nodiscard]] constexpr double slopeAt(double s) const noexcept {
        return (3 * cube_ * s + 2 * square_) * s + linear_;
    }

private:
    double linear_;
    double square_;
    double cube_;
};

/// Solves x(s) = t for s, where `x` strictly increases from 0 to 1. Newton's method, falling back
/// to bisection if a step leaves the interval that contains the solution.
double solved(const Polynomial& x, double t) noexcept {
    constexpr double precision = 1e-9;
    constexpr int mostSteps = 60;
    double low = 0;
    double high = 1;
    double s = t;
    for (int step = 0; step < mostSteps; ++step) {
        const double error = x.at(s) - t;
        if (std::abs(error) < precision)
            break;
        (error > 0 ? high : low) = s;
        const double slope = x.slopeAt(s);
        const double next = slope > 0 ? s - error / slope : low;
        s = next > low && next < high ? next : (low + high) / 2;
    }
    return s;
}

/// The y coordinate, whose control points are 0 and 1, in a form that is exact at the end.
double height(double s) noexcept {
    const double left = 1 - s;
    return s < 0.5 ? s * s * (1 + 2 * left) : 1 - left * left * (1 + 2 * s);
}

double eased(Easing easing, double t) noexcept {
    if (t <= 0 || t >= 1)
        return t <= 0 ? 0 : 1;
    constexpr double last = 0.58;
    constexpr Polynomial xOut{0, last};
    constexpr Polynomial xInOut{1 - last, last};
    return height(solved(easing == Easing::easeOut ? xOut : xInOut, t));
}

}

double progress(const Curve& curve, double elapsed) noexcept {
    const double legs = std::max(0.0, elapsed / curve.duration);
    if (!curve.repeats)
        return eased(curve.easing, std::min(legs, 1.0));
    const double leg = std::floor(legs);
    const bool isOnTheWayBack = std::fmod(leg, 2) == 1;
    const double t = legs - leg;
    return eased(curve.easing, isOnTheWayBack ? 1 - t : t);
}

bool isMoving(const Curve& curve, double elapsed) noexcept {
    return curve.repeats || elapsed < curve.duration;
}

}
