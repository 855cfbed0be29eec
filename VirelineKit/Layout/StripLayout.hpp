/// The layout of a dock: tiles, separators, the glass behind them, and the space for labels.
/// Rectangles are in the view's coordinates: points, origin top-left, y downwards.
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
    /// The area in which the pointer counts as over the tile.
    Rect hit;

    bool operator==(const TileFrames&) const = default;
};

struct StripFrames {
    Rect glass;
    /// The glass without magnification.
    Rect glassAtRest;
    /// The pinned tiles, the running ones, then the utility tiles that exist.
    std::vector<TileFrames> tiles;
    /// The side of an icon at rest.
    double iconSize = 0;
    /// The side of a fully magnified icon.
    double magnifiedIconSize = 0;
    /// One before the running group, unless that is empty, and one before the utility group.
    std::vector<Rect> separators;
    /// The space directly above a bottom strip at rest. Meaningless for docks at the left and
    /// right, which show no labels.
    Rect labelZone;

    bool operator==(const StripFrames&) const = default;
};

namespace StripLayout {

/// How far a launching tile bounces away from the display's edge, in points, and the scale of a
/// dragged tile.
inline constexpr double bounceHeight = 12;
inline constexpr double draggedScale = 1.08;

struct Request {
    DockOrdering::Counts counts;
    /// The plan always has room for both utility tiles. One whose folder is unknown is omitted.
    bool hasDownloads = true;
    bool hasTrash = true;
    /// The fitted size on this display.
    double iconSize = 44;
    /// The factor under the pointer; 1 means off.
    double magnification = 1;
    Edge edge;
    /// The pointer's position along the axis, from the view's leading edge.
    std::optional<double> cursorAxis;
};

[[nodiscard]] StripFrames layout(const Request& request);

/// The space for a tile's label, moved outwards as far as the tile has grown.
[[nodiscard]] Rect labelZone(const StripFrames& frames, const Edge& edge, std::size_t tile);

/// Where a menu opens for a position along the axis: clear of the strip and of magnified tiles.
[[nodiscard]] MenuPlace menuPlace(const StripFrames& frames, const Edge& edge, double along);

/// Whether a point is in the band along the display's edge in which the pointer magnifies. The band
/// extends slightly beyond the strip, so that moving into the grown icons does not end
/// magnification.
[[nodiscard]] bool isInMagnificationBand(Point p, const Edge& edge, double iconSize) noexcept;

/// The area that takes the pointer during magnification: the view, and beyond it as far as tiles
/// are drawn while the pointer magnifies.
[[nodiscard]] Rect fullGrowth(const Request& request) noexcept;

/// The maximum distance to which anything is drawn beyond the view, away from the display's edge:
/// tiles at their largest while they bounce, or the label above them. In whole points.
[[nodiscard]] double overhang(const Request& request) noexcept;

}
}
