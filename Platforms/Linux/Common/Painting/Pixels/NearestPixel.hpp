/// How a position is rounded to whole pixels.
#pragma once

#include <algorithm>
#include <cmath>

namespace vireline::xdg {

/// Rounds halves up on either side of zero, so that moving a display by whole pixels moves
/// everything on it by the same amount. Clamped to 16 bits, the range of X11 coordinates.
[[nodiscard]] inline int nearestPixel(double position) {
    constexpr double reach = 32767;
    return static_cast<int>(std::clamp(std::floor(position + 0.5), -reach, reach));
}

}
