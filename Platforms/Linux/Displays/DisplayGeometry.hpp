/// The one place that converts between X pixels and points: per display, both ways. Global points
/// have their origin at the primary display's bottom-left corner and grow upwards; a display's own
/// corner lies there at its distance in pixels, and within the display a point is `scale` pixels.
#pragma once

#include "Foundation/Geometry.hpp"
#include "X11/PixelRect.hpp"

#include <cstdint>

namespace vireline::x11 {

struct Display {
    PixelRect pixels;
    /// The display's bottom-left corner in global points.
    Point origin;
    /// Pixels per point; positive.
    double scale = 1;

    bool operator==(const Display&) const = default;
};

namespace DisplayGeometry {

/// A scale that is not a number above 0 counts as 1.
[[nodiscard]] Display display(const PixelRect& monitor, const PixelRect& primary, double scale);

/// The whole display in global points.
[[nodiscard]] Rect frame(const Display& display);

[[nodiscard]] Rect toPoints(const Display& display, const PixelRect& pixels);

/// Each edge goes to the nearest pixel edge, so that rectangles that touch still touch, and what
/// `toPoints` gave comes back unchanged. Never thinner than one pixel.
[[nodiscard]] PixelRect toPixels(const Display& display, const Rect& global);

/// Where a view lies, whose frame is given in points from its window's bottom-left corner, y
/// upwards. `window` is the window's frame in global points.
[[nodiscard]] PixelRect viewPixels(const Display& display, const Rect& window, const Rect& view);

}
}
