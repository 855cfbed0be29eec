/// Where everything on one dock lies: tiles, separators, the glass behind them and the label's
/// room. Rectangles are in the view's coordinates: points, origin top-left, y downwards.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Layout/Edge.hpp"
#include "Model/DockOrdering.hpp"
#include "Presentation/Menu.hpp"
#include "Settings/Settings.hpp"

#include <cstddef>
#include <optional>
#include <vector>

namespace vireline {

struct TileFrames {
    Rect icon;
    /// The running dot, on the side of the display edge.
    Rect dot;
    /// What counts as the tile for the pointer.
    Rect hit;

    bool operator==(const TileFrames&) const = default;
};

struct StripFrames {
    Rect glass;
    /// The glass with nothing magnified.
    Rect glassAtRest;
    /// Pinned, running, then the utility tiles that there are.
    std::vector<TileFrames> tiles;
    /// The side of an icon that has not grown.
    double iconSize = 0;
    /// The side of the one under the pointer.
    double magnifiedIconSize = 0;
    /// One before the running group, if it holds anything, and one before the utility group.
    std::vector<Rect> separators;
    /// The room directly on a bottom strip that has not grown; meaningless for the sides, which
    /// show no label.
    Rect labelZone;

    bool operator==(const StripFrames&) const = default;
};

namespace StripLayout {

/// How far a launching tile bobs away from the display's edge, in points, and how much larger a
/// dragged one is drawn.
inline constexpr double bounceHeight = 12;
inline constexpr double draggedScale = 1.08;

struct Request {
    DockOrdering::Counts counts;
    /// Room for both utility tiles is always planned; one whose folder is unknown is left out.
    bool hasDownloads = true;
    bool hasTrash = true;
    /// The effective size on this display.
    double iconSize = 44;
    /// The factor under the pointer; 1 is off.
    double magnification = 1;
    Edge edge;
    /// The pointer along the axis, from the view's leading edge.
    std::optional<double> cursorAxis;
};

[[nodiscard]] StripFrames layout(const Request& request);

/// The label's room for a tile: as much farther out as the tile has grown.
[[nodiscard]] Rect labelZone(const StripFrames& frames, const Edge& edge, std::size_t tile);

/// Where a menu opens for a place along the axis: beside the strip and all that has grown out of
/// it.
[[nodiscard]] MenuPlace menuPlace(const StripFrames& frames, const Edge& edge, double along);

/// Whether a point lies in the band along the display edge where the pointer magnifies. It reaches
/// a little beyond the strip, so that crossing into the grown icons does not end it.
[[nodiscard]] bool isInMagnificationBand(Point p, const Edge& edge, double iconSize) noexcept;

/// Divides the view and the strip: each part is over one tile, or over none, and none is empty. For
/// a strip that has not grown.
[[nodiscard]] std::vector<Rect> quietRegions(const StripFrames& frames, const Edge& edge);

/// Where magnified tiles take the pointer: as far as the view reaches, and beyond it as far as they
/// are drawn while the pointer magnifies.
[[nodiscard]] Rect fullGrowth(const Request& request) noexcept;

/// How far beyond the view, away from the display's edge, anything is ever drawn: tiles at their
/// largest, also while they bob, and the label above those. Whole points.
[[nodiscard]] double overhang(const Request& request) noexcept;

}
}
