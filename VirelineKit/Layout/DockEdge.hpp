/// Converts between a dock's own coordinates, along its axis and away from the display's edge, and
/// x and y. So the layout is written once for all edges.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Settings/Settings.hpp"

namespace vireline {

/// An interval on one axis, in points.
struct Extent {
    double start = 0;
    double length = 0;

    [[nodiscard]] constexpr double middle() const noexcept { return start + length / 2; }
    [[nodiscard]] constexpr double end() const noexcept { return start + length; }

    bool operator==(const Extent&) const = default;
};

/// The axis along which a dock runs, and at which end of the other axis its edge is.
struct DockEdge {
    bool isHorizontal = true;
    bool isFarEnd = false;

    /// In global space, where y grows upwards.
    [[nodiscard]] static constexpr DockEdge global(DockPosition position) noexcept {
        const DockPositionTraits& traits = traitsOf(position);
        return {traits.isHorizontal, traits.isTopOrRight};
    }

    /// In a view, where y grows downwards.
    [[nodiscard]] static constexpr DockEdge inView(DockPosition position) noexcept {
        const DockPositionTraits& traits = traitsOf(position);
        return {traits.isHorizontal, traits.isTopOrRight != traits.isHorizontal};
    }

    [[nodiscard]] constexpr Extent along(const Rect& rect) const noexcept {
        return isHorizontal ? Extent{rect.x, rect.width} : Extent{rect.y, rect.height};
    }

    [[nodiscard]] constexpr Extent across(const Rect& rect) const noexcept {
        return isHorizontal ? Extent{rect.y, rect.height} : Extent{rect.x, rect.width};
    }

    /// The rectangle with these extents.
    [[nodiscard]] constexpr Rect rect(Extent along, Extent across) const noexcept {
        return isHorizontal ? Rect{along.start, across.start, along.length, across.length}
                            : Rect{across.start, along.start, across.length, along.length};
    }

    /// `thickness` points of `container`, `gap` points inside its edge; a negative gap lies
    /// outside.
    [[nodiscard]] constexpr Extent atEdge(Extent container, double thickness,
                                          double gap) const noexcept {
        return {isFarEnd ? container.end() - gap - thickness : container.start + gap, thickness};
    }

    /// `container` without the first `depth` points from the edge.
    [[nodiscard]] constexpr Extent beyond(Extent container, double depth) const noexcept {
        return {isFarEnd ? container.start : container.start + depth, container.length - depth};
    }

    /// The vector that leads by `along` along the axis and by `away` away from the edge.
    [[nodiscard]] constexpr Point vector(double along, double away) const noexcept {
        const double across = isFarEnd ? -away : away;
        return isHorizontal ? Point{along, across} : Point{across, along};
    }
};

}
