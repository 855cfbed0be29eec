/// A dock is laid out once, along its axis and outwards from the display edge it sits on; this is
/// where that turns into the coordinates of a view (origin top-left, y downwards), for any edge.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Settings/Settings.hpp"

namespace vireline {

/// The display edge that a view of this size sits on.
struct Edge {
    DockPosition position = DockPosition::bottom;
    Size view;

    [[nodiscard]] constexpr bool isHorizontal() const noexcept {
        return position == DockPosition::bottom;
    }

    /// The view's extent along the dock's axis.
    [[nodiscard]] constexpr double length() const noexcept {
        return isHorizontal() ? view.width : view.height;
    }

    /// The view's extent across the axis.
    [[nodiscard]] constexpr double thickness() const noexcept {
        return isHorizontal() ? view.height : view.width;
    }

    /// Where a point lies along the axis, from the view's leading edge.
    [[nodiscard]] constexpr double along(Point p) const noexcept {
        return isHorizontal() ? p.x : p.y;
    }

    /// How far a point is from the display edge.
    [[nodiscard]] constexpr double distance(Point p) const noexcept {
        switch (position) {
        case DockPosition::left:
            return p.x;
        case DockPosition::right:
            return view.width - p.x;
        case DockPosition::bottom:
            break;
        }
        return view.height - p.y;
    }

    /// The movement by `along` the axis and by `away` from the edge, in the view's coordinates.
    [[nodiscard]] constexpr Point vector(double along, double away) const noexcept {
        switch (position) {
        case DockPosition::left:
            return {away, along};
        case DockPosition::right:
            return {-away, along};
        case DockPosition::bottom:
            break;
        }
        return {along, -away};
    }

    /// The rectangle that begins at `start` along the axis and at `nearEdge` from the edge.
    [[nodiscard]] constexpr Rect rect(double start, double length, double nearEdge,
                                      double thickness) const noexcept {
        switch (position) {
        case DockPosition::left:
            return {nearEdge, start, thickness, length};
        case DockPosition::right:
            return {view.width - nearEdge - thickness, start, thickness, length};
        case DockPosition::bottom:
            break;
        }
        return {start, view.height - nearEdge - thickness, length, thickness};
    }
};

}
