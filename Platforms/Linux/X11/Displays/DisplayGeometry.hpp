/// The one place that converts between X pixels and points, per display and in both directions.
/// Global points have their origin at the primary display's bottom-left corner and y upwards. A
/// display's own corner is placed there at its distance in pixels; within the display a point is
/// `scale` pixels.
#pragma once

#include "Connection/PixelRect.hpp"
#include "Foundation/Geometry.hpp"

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

/// A scale that is not a positive number is treated as 1.
[[nodiscard]] Display display(const PixelRect& monitor, const PixelRect& primary, double scale);

/// The whole display in global points.
[[nodiscard]] Rect frame(const Display& display);

[[nodiscard]] Rect toPoints(const Display& display, const PixelRect& pixels);

/// Rounds each edge to the nearest pixel, so that adjacent rectangles stay adjacent and results of
/// `toPoints` convert back exactly. Never thinner than one pixel.
[[nodiscard]] PixelRect toPixels(const Display& display, const Rect& global);

/// The pixels of a view whose frame is given in points from its window's bottom-left corner, y
/// upwards. `window` is the window's frame in global points.
[[nodiscard]] PixelRect viewPixels(const Display& display, const Rect& window, const Rect& view);

// Event space: points, with the origin at the primary display's top-left corner, y downwards.
// `displays` is a consistent snapshot with the primary first, and is never empty.

/// Converts between global and event space, in either direction.
[[nodiscard]] Rect flipped(const Rect& rect, std::span<const Display> displays);

/// The display that contains this pixel, otherwise the nearest one.
[[nodiscard]] const Display& nearest(std::span<const Display> displays, int x, int y);

/// The display that contains this point in event space, otherwise the nearest one.
[[nodiscard]] const Display& nearest(std::span<const Display> displays, Point event);

/// The top-left corner of a pixel, in event space.
[[nodiscard]] Point eventPoint(std::span<const Display> displays, int x, int y);

/// The pixel that contains this point.
[[nodiscard]] PixelPoint pixelAt(std::span<const Display> displays, Point event);

/// Like `toPoints` and `toPixels`, but in event space and on the display that contains the
/// rectangle's centre, otherwise the nearest one.
[[nodiscard]] Rect toEventSpace(std::span<const Display> displays, const PixelRect& pixels);
[[nodiscard]] PixelRect toPixels(std::span<const Display> displays, const Rect& event);

}
}
