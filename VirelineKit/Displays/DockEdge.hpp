/// A display's edge as a parameter: rectangles taken apart into an extent along the edge and one
/// across it, so that a dock's geometry is written once. Global space: y grows upwards.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Settings/Settings.hpp"

namespace vireline::DockEdge {

/// A stretch of one axis, in points.
struct Extent {
    double start = 0;
    double length = 0;

    [[nodiscard]] constexpr double middle() const noexcept { return start + length / 2; }
    [[nodiscard]] constexpr double end() const noexcept { return start + length; }

    bool operator==(const Extent&) const = default;
};

/// Whether a dock at this edge runs along x.
[[nodiscard]] constexpr bool isHorizontal(DockPosition edge) noexcept {
    return edge == DockPosition::bottom;
}

/// Whether the edge lies at the far end of the axis across it.
[[nodiscard]] constexpr bool isFarEnd(DockPosition edge) noexcept {
    return edge == DockPosition::right;
}

[[nodiscard]] constexpr Extent along(const Rect& rect, DockPosition edge) noexcept {
    return isHorizontal(edge) ? Extent{rect.x, rect.width} : Extent{rect.y, rect.height};
}

[[nodiscard]] constexpr Extent across(const Rect& rect, DockPosition edge) noexcept {
    return isHorizontal(edge) ? Extent{rect.y, rect.height} : Extent{rect.x, rect.width};
}

/// The rectangle with these extents.
[[nodiscard]] constexpr Rect rect(Extent along, Extent across, DockPosition edge) noexcept {
    return isHorizontal(edge) ? Rect{along.start, across.start, along.length, across.length}
                              : Rect{across.start, along.start, across.length, along.length};
}

/// `thickness` points of `container`, `gap` points inside its edge; a negative gap lies outside.
[[nodiscard]] constexpr Extent atEdge(Extent container, double thickness, double gap,
                                      DockPosition edge) noexcept {
    return {isFarEnd(edge) ? container.end() - gap - thickness : container.start + gap, thickness};
}

}
