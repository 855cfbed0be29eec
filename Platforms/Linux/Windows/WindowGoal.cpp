#include "Windows/WindowGoal.hpp"

#include <algorithm>

namespace vireline::x11::WindowGoals {
namespace {

/// A side that is too long stays where it was asked to be.
int keptInside(int start, int length, int boundsStart, int boundsLength) {
    if (length > boundsLength)
        return start;
    return std::clamp(start, boundsStart, boundsStart + boundsLength - length);
}

PixelRect keptInside(const PixelRect& outer, const PixelRect& bounds) {
    return {keptInside(outer.x, outer.width, bounds.x, bounds.width),
            keptInside(outer.y, outer.height, bounds.y, bounds.height), outer.width, outer.height};
}

PixelRect sized(const Rect& frame, const WindowSnapshot& window, const Display& display,
                std::span<const Display> displays) {
    PixelRect outer = DisplayGeometry::toPixels(display, DisplayGeometry::flipped(frame, displays));
    const PixelSize size = window.constrained({outer.width, outer.height});
    outer.width = size.width;
    outer.height = size.height;
    return outer;
}

PixelRect centered(Point center, const WindowSnapshot& window, const Display& display,
                   std::span<const Display> displays) {
    const PixelRect now = window.outer();
    const Size size{now.width / display.scale, now.height / display.scale};
    const Rect frame{center.x - size.width / 2, center.y - size.height / 2, size.width,
                     size.height};
    const PixelRect outer =
        DisplayGeometry::toPixels(display, DisplayGeometry::flipped(frame, displays));
    return {outer.x, outer.y, now.width, now.height};
}

}

PixelRect outerFrame(const WindowGoal& goal, const WindowSnapshot& window,
                     std::span<const Display> displays) {
    const Display& display = DisplayGeometry::nearest(displays, goal.frame.center());
    const PixelRect outer = goal.isSized ? sized(goal.frame, window, display, displays)
                                         : centered(goal.frame.center(), window, display, displays);
    return keptInside(outer, display.pixels);
}

bool isOnDisplay(const WindowGoal& goal, const WindowSnapshot& window,
                 std::span<const Display> displays) {
    const Display& display = DisplayGeometry::nearest(displays, goal.frame.center());
    const PixelPoint center = window.outer().center();
    return display.pixels.contains(center.x, center.y);
}

}
