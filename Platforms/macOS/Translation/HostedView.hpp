/// A view inside the window that hosts it. The origin of the window's coordinates is its
/// bottom-left corner, y upwards; that of the view's is the view's top-left corner, y downwards.
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

    /// The frame, moved so that its top and left edges are on whole device pixels. The positions of
    /// nodes are relative to these edges.
    [[nodiscard]] static Rect onWholePixels(const Rect& frame, double scale) {
        const double left = std::round(frame.minX() * scale) / scale;
        const double top = std::round(frame.maxY() * scale) / scale;
        return {left, top - frame.height, frame.width, frame.height};
    }

    /// Whether a window that changes its frame in this way keeps its right edge but not its left
    /// one.
    [[nodiscard]] static bool staysAtRight(const Rect& from, const Rect& to) {
        constexpr double tolerance = 0.01;
        return std::abs(from.maxX() - to.maxX()) < tolerance &&
               std::abs(from.minX() - to.minX()) > tolerance;
    }

    bool operator==(const HostedView&) const = default;
};

}
