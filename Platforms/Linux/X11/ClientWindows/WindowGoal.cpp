#include "ClientWindows/WindowGoal.hpp"

#include <algorithm>
#include <cstdint>

namespace vireline::x11::WindowGoals {
namespace {

/// One axis of a frame.
struct Span {
    int start = 0;
    int length = 0;

    [[nodiscard]] int end() const noexcept { return start + length; }
};

/// Clamps the position; a side that is too long stays at the requested position.
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

/// At which end of an axis the dock is, as far as the frame reveals it.
enum class DockEnd : std::uint8_t { none, start, end };

/// A frame next to a dock covers the visible frame except for the strip at that end.
DockEnd dockEnd(const Span& asked, const Span& visible, bool fillsOtherAxis) {
    const int freeBefore = asked.start - visible.start;
    const int freeBehind = visible.end() - asked.end();
    if (!fillsOtherAxis || (freeBefore > 0) == (freeBehind > 0))
        return DockEnd::none;
    return freeBefore > 0 ? DockEnd::start : DockEnd::end;
}

bool isSame(const Span& one, const Span& other) {
    return one.start == other.start && one.length == other.length;
}

/// The position of a side of this length whose requested span was `asked`.
int placed(int length, const Span& asked, DockEnd dock, const Span& display) {
    if (length <= asked.length || dock == DockEnd::start)
        return asked.start;
    return dock == DockEnd::end ? asked.end() - length : keptWithin({asked.start, length}, display);
}

PixelRect sized(const WindowGoal& goal, const WindowSnapshot& window, const Display& display,
                std::span<const Display> displays) {
    const auto pixels = [&](const Rect& rect) {
        return DisplayGeometry::toPixels(display, DisplayGeometry::flipped(rect, displays));
    };
    const auto across = [](const PixelRect& rect) { return Span{rect.x, rect.width}; };
    const auto down = [](const PixelRect& rect) { return Span{rect.y, rect.height}; };
    const PixelRect asked = pixels(goal.frame);
    const PixelRect visible = pixels(goal.visible);
    const bool fillsAcross = isSame(across(asked), across(visible));
    const bool fillsDown = isSame(down(asked), down(visible));
    const auto [width, height] = window.constrained({asked.width, asked.height});
    return {placed(width, across(asked), dockEnd(across(asked), across(visible), fillsDown),
                   across(display.pixels)),
            placed(height, down(asked), dockEnd(down(asked), down(visible), fillsAcross),
                   down(display.pixels)),
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
