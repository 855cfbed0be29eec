#include "Windows/WindowGoal.hpp"

#include <algorithm>

namespace vireline::x11::WindowGoals {
namespace {

/// One axis of a frame.
struct Span {
    int start = 0;
    int length = 0;

    [[nodiscard]] int end() const noexcept { return start + length; }
};

/// A side that is too long stays where it was asked to be.
int keptWithin(const Span& span, const Span& bounds) {
    if (span.length > bounds.length)
        return span.start;
    return std::clamp(span.start, bounds.start, bounds.end() - span.length);
}

PixelRect keptInside(const PixelRect& outer, const PixelRect& bounds) {
    return {keptWithin({outer.x, outer.width}, {bounds.x, bounds.width}),
            keptWithin({outer.y, outer.height}, {bounds.y, bounds.height}), outer.width,
            outer.height};
}

/// Where a side of this length starts that was asked to be `asked`.
int placed(int length, const Span& asked, const Span& visible, const Span& display) {
    const int keptFreeBefore = asked.start - visible.start;
    const int keptFreeBehind = visible.end() - asked.end();
    if (length <= asked.length || keptFreeBefore > keptFreeBehind)
        return asked.start;
    if (keptFreeBehind > keptFreeBefore)
        return asked.end() - length;
    return keptWithin({asked.start, length}, display);
}

PixelRect sized(const WindowGoal& goal, const WindowSnapshot& window, const Display& display,
                std::span<const Display> displays) {
    const auto pixels = [&](const Rect& rect) {
        return DisplayGeometry::toPixels(display, DisplayGeometry::flipped(rect, displays));
    };
    const PixelRect asked = pixels(goal.frame);
    const PixelRect visible = pixels(goal.visible);
    const PixelRect& whole = display.pixels;
    const auto [width, height] = window.constrained({asked.width, asked.height});
    return {
        placed(width, {asked.x, asked.width}, {visible.x, visible.width}, {whole.x, whole.width}),
        placed(height, {asked.y, asked.height}, {visible.y, visible.height},
               {whole.y, whole.height}),
        width, height};
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
    if (goal.isSized)
        return sized(goal, window, display, displays);
    return keptInside(centered(goal.frame.center(), window, display, displays), display.pixels);
}

bool isOnDisplay(const WindowGoal& goal, const WindowSnapshot& window,
                 std::span<const Display> displays) {
    const Display& display = DisplayGeometry::nearest(displays, goal.frame.center());
    const PixelPoint center = window.outer().center();
    return display.pixels.contains(center.x, center.y);
}

}
