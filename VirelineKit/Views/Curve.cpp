#include "Views/Curve.hpp"

#include <algorithm>
#include <cmath>

namespace vireline {
namespace {

double eased(Easing easing, double t) noexcept {
    const double left = 1 - t;
    switch (easing) {
    case Easing::easeOut:
        return 1 - left * left * left;
    case Easing::easeInOut:
        break;
    }
    return t < 0.5 ? 4 * t * t * t : 1 - 4 * left * left * left;
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
