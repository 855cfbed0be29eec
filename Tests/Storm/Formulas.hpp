/// The positions and lengths of docks, computed independently from the documented sizes. Shares no
/// code with the kit, so that a mistake there shows. Rectangles are in global space: points, y
/// upwards.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Platform/Desktop/Screens.hpp"
#include "Settings/Settings.hpp"

#include <cstdint>
#include <optional>
#include <vector>

namespace vireline::storm {

/// The apps in a strip; the two utility tiles are not counted.
struct TileCounts {
    int pinned = 0;
    int unpinned = 0;

    bool operator==(const TileCounts&) const = default;
};

/// The icon size if `available` points along the edge can be used.
[[nodiscard]] double fittedIconSize(TileCounts counts, double available, double largest);

struct PlannedDock {
    std::uint32_t display = 0;
    Rect frame;
    /// Length along the edge that is available for tiles.
    double available = 0;
    DockPosition position = DockPosition::bottom;
};

struct LookOfDocks {
    TileCounts counts;
    double iconSize = 0;
    double magnification = 1;
    DockPosition position = DockPosition::bottom;
};

/// The extent of a tile along the dock's axis, in points from the view's leading edge.
struct TileExtent {
    double start = 0;
    double length = 0;
};

struct LookOfStrip {
    TileCounts counts;
    double iconSize = 0;
    double magnification = 1;
    /// The length of the view, and the position of a pointer that magnifies.
    double view = 0;
    std::optional<double> cursor = {};
    bool hasDownloads = true;
    bool hasTrash = true;
};

[[nodiscard]] std::vector<TileExtent> tileExtents(const LookOfStrip& look);

/// Whether a pointer at this point of the view magnifies the strip.
[[nodiscard]] bool magnifies(Point at, Size view, double iconSize, DockPosition position);

/// A dock for each display except the one with the desktop's own dock, in the order of the
/// displays.
[[nodiscard]] std::vector<PlannedDock> plannedDocks(const std::vector<PlatformScreen>& screens,
                                                    const LookOfDocks& look);

/// The window of a collapsed dock, and of an auto-hiding one that is out.
[[nodiscard]] Rect sliverOf(const Rect& frame, DockPosition position);
[[nodiscard]] Rect hoverFrameOf(const Rect& frame, DockPosition position);

/// The frame of the view in its window; y upwards.
[[nodiscard]] Rect hostedFrameOf(const Rect& frame, DockPosition position, bool hides, bool isIn);

/// The guarded bands at the bottom edges of these displays, in event space.
[[nodiscard]] std::vector<Rect> guardBands(const std::vector<PlatformScreen>& screens,
                                           const std::vector<std::uint32_t>& displays);

/// The frames of all displays in event space.
[[nodiscard]] std::vector<Rect> eventFrames(const std::vector<PlatformScreen>& screens);

/// Where a pointer that is moved to `pointer` ends up, which may be on another display.
[[nodiscard]] Point keptOut(Point pointer, const std::vector<Rect>& bands,
                            const std::vector<Rect>& displays);

/// The index where a tile lands that is dragged by `offset` points.
[[nodiscard]] int landing(int from, double offset, double slot, int count);

/// Whether two rectangles are equal except for rounding.
[[nodiscard]] bool isNear(const Rect& a, const Rect& b);

}
