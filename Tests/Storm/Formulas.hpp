/// Where docks belong and how long they are, worked out a second time from the documented sizes
/// and shared with nothing in the kit, so that a mistake there cannot hide here. Rectangles are in
/// global space: points, y upwards.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Platform/Screens.hpp"
#include "Settings/Settings.hpp"

#include <cstdint>
#include <optional>
#include <vector>

namespace vireline::storm {

/// What a strip holds; the two utility tiles come on top.
struct TileCounts {
    int pinned = 0;
    int unpinned = 0;

    bool operator==(const TileCounts&) const = default;
};

/// How large icons are where `available` points along the edge can be used.
[[nodiscard]] double fittedIconSize(TileCounts counts, double available, double largest);

struct PlannedDock {
    std::uint32_t display = 0;
    Rect frame;
    /// Along the edge, for the tiles.
    double available = 0;
    DockPosition position = DockPosition::bottom;
};

struct LookOfDocks {
    TileCounts counts;
    double iconSize = 0;
    double magnification = 1;
    DockPosition position = DockPosition::bottom;
};

/// One dock for every display but the one that holds the desktop's own, in the displays' order.
[[nodiscard]] std::vector<PlannedDock> plannedDocks(const std::vector<PlatformScreen>& screens,
                                                    const LookOfDocks& look);

/// The window of a hidden dock, and of one that hides but is out.
[[nodiscard]] Rect sliverOf(const Rect& frame, DockPosition position);
[[nodiscard]] Rect hoverFrameOf(const Rect& frame, DockPosition position);

/// Where the view lies in its window; y upwards.
[[nodiscard]] Rect hostedFrameOf(const Rect& frame, DockPosition position, bool hides, bool isIn);

/// The bands along the bottom edges of these displays, in event space.
[[nodiscard]] std::vector<Rect> guardBands(const std::vector<PlatformScreen>& screens,
                                           const std::vector<std::uint32_t>& displays);

/// All displays in event space.
[[nodiscard]] std::vector<Rect> eventFrames(const std::vector<PlatformScreen>& screens);

/// Where a pointer that was moved there ends up, which may go from display to display.
[[nodiscard]] Point keptOut(Point pointer, const std::vector<Rect>& bands,
                            const std::vector<Rect>& displays);

/// The place where a tile lands that is dragged by `offset` points.
[[nodiscard]] int landing(int from, double offset, double slot, int count);

/// Whether two rectangles are the same but for rounding.
[[nodiscard]] bool isNear(const Rect& a, const Rect& b);

}
