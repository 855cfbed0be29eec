/// A view inside the window that hosts it: the window's coordinates have their origin at its
/// bottom-left corner, y upwards, the view's at the view's top-left corner, y downwards.
#pragma once

#include "Foundation/Geometry.hpp"

#include <cmath>

namespace vireline::macos {

struct HostedView {
    /// In the window's coordinates.
    Rect frame;

    [[nodiscard]] constexpr Point toView(Point window) const noexcept {
        return {window.x - frame.minX(), frame.maxY() - window.y};
    }

    /// The frame with its top and its left edge on whole device pixels, from which everything in it
    /// is measured; of the same size.
    [[nodiscard]] static Rect onWholePixels(const Rect& frame, double scale) {
        const double left = std::round(frame.minX() * scale) / scale;
        const double top = std::round(frame.maxY() * scale) / scale;
        return {left, top - frame.height, frame.width, frame.height};
    }

    /// Whether a window that goes from one frame to another keeps its right edge but not its left
    /// one.
    [[nodiscard]] static bool staysAtRight(const Rect& from, const Rect& to) {
        constexpr double tolerance = 0.01;
        return std::abs(from.maxX() - to.maxX()) < tolerance &&
               std::abs(from.minX() - to.minX()) > tolerance;
    }

    bool operator==(const HostedView&) const = default;
};

}
