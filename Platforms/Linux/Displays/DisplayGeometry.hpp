/// The one place that converts between X pixels and points: per display, both ways. Global points
/// have their origin at the primary display's bottom-left corner and grow upwards; a display's own
/// corner lies there at its distance in pixels, and within the display a point is `scale` pixels.
#pragma once

#include "Foundation/Geometry.hpp"
#include "X11/PixelRect.hpp"

#include <cstdint>
#include <span>

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

// Event space: points, origin at the primary display's top-left corner, y downwards. The displays
// are those of one moment, the primary first; there is at least one.

/// Between global and event space, both ways.
[[nodiscard]] Rect flipped(const Rect& rect, std::span<const Display> displays);

/// The display that shows this pixel, else the one nearest to it.
[[nodiscard]] const Display& nearest(std::span<const Display> displays, int x, int y);

/// The display that holds this point of event space, else the one nearest to it.
[[nodiscard]] const Display& nearest(std::span<const Display> displays, Point event);

/// Where a pixel lies: its top-left corner.
[[nodiscard]] Point eventPoint(std::span<const Display> displays, int x, int y);

/// The pixel that holds this point.
[[nodiscard]] PixelPoint pixelAt(std::span<const Display> displays, Point event);

/// What `toPoints` and `toPixels` do, in event space and on the display that holds, or is nearest
/// to, the rectangle's centre.
[[nodiscard]] Rect toEventSpace(std::span<const Display> displays, const PixelRect& pixels);
[[nodiscard]] PixelRect toPixels(std::span<const Display> displays, const Rect& event);

}
}
