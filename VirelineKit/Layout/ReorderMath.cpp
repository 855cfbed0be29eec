#include "Layout/ReorderMath.hpp"

#include "Foundation/Require.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vireline::ReorderMath {

int targetIndex(const Drag& drag) {
    if (drag.slot <= 0 || drag.count < 1)
        return drag.draggedIndex;
    // Rounds halves away from zero, so that both directions behave the same.
    const double steps = std::round(drag.offset / drag.slot);
    constexpr double limit = 0x1p62;
    require(std::abs(steps) < limit, "a drag covers a finite number of slots");
    const std::int64_t target = drag.draggedIndex + static_cast<std::int64_t>(steps);
    return static_cast<int>(std::clamp<std::int64_t>(target, 0, drag.count - 1));
}

double neighborOffset(int tileIndex, const Drag& drag) {
    const int target = targetIndex(drag);
    if (drag.draggedIndex < tileIndex && tileIndex <= target)
        return -drag.slot;
    if (target <= tileIndex && tileIndex < drag.draggedIndex)
        return drag.slot;
    return 0;
}

}
