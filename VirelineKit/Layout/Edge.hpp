/// A dock's edge as its view sees it: origin top-left, y downwards.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Layout/DockEdge.hpp"

namespace vireline {

/// The display edge that a view of this size sits on: the `DockEdge` of the view's coordinates,
/// together with the size from which it measures.
struct Edge {
    DockPosition position = DockPosition::bottom;
    Size view;

    [[nodiscard]] constexpr bool isHorizontal() const noexcept { return direction().isHorizontal; }

    /// The view's extent along the dock's axis.
    [[nodiscard]] constexpr double length() const noexcept {
        return direction().along(bounds()).length;
    }

    /// The view's extent across the axis.
    [[nodiscard]] constexpr double thickness() const noexcept {
        return direction().across(bounds()).length;
    }

    /// A point's position along the axis, from the view's leading edge.
    [[nodiscard]] constexpr double along(Point p) const noexcept {
        return isHorizontal() ? p.x : p.y;
    }

    /// How far a point is from the display edge.
    [[nodiscard]] constexpr double distance(Point p) const noexcept {
        const double across = isHorizontal() ? p.y : p.x;
        return direction().isFarEnd ? thickness() - across : across;
    }

    /// The vector that leads by `along` along the axis and by `away` away from the edge, in the
    /// view's coordinates.
    [[nodiscard]] constexpr Point vector(double along, double away) const noexcept {
        return direction().vector(along, away);
    }

    /// The rectangle that begins at `start` along the axis and at `nearEdge` from the edge.
    [[nodiscard]] constexpr Rect rect(double start, double length, double nearEdge,
                                      double thickness) const noexcept {
        const Extent across = direction().across(bounds());
        return direction().rect({start, length}, direction().atEdge(across, thickness, nearEdge));
    }

private:
    [[nodiscard]] constexpr DockEdge direction() const noexcept {
        return DockEdge::inView(position);
    }
    [[nodiscard]] constexpr Rect bounds() const noexcept { return {0, 0, view.width, view.height}; }
};

}
