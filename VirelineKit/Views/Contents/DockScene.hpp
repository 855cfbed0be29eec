/// Turns the layout and state of a dock into the nodes to paint.
#pragma once

#include "Layout/Edge.hpp"
#include "Layout/StripLayout.hpp"
#include "Presentation/Scene.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

/// The state of one tile.
struct TileLook {
    /// Identifies the tile across scenes.
    std::uint32_t serial = 0;
    ImageHandle image = {};
    bool isRunning = false;
    bool isLaunching = false;
    /// True for a moment after a tap.
    bool isPulsing = false;
    bool isDropTargeted = false;
    bool isBeingDragged = false;
    /// The same, in the previous scene.
    bool wasDropTargeted = false;
    bool wasBeingDragged = false;
    /// The text of its badge; empty for none.
    std::string badge = {};
    std::optional<double> progress = {};
    bool wantsAttention = false;
    /// It has just begun to want attention.
    bool isBobbing = false;
    /// The offset along the axis: of a dragged tile, or of one that makes room for it.
    double slide = 0;
};

/// The label that names a tile.
struct LabelLook {
    std::size_t tile = 0;
    std::string text;
};

struct DockLook {
    Edge edge;
    const StripFrames& frames;
    /// One for each tile in `frames`.
    std::vector<TileLook> tiles;
    std::optional<LabelLook> label;
    /// The list of tiles has changed since the previous scene.
    bool listChanged = false;
    /// A dragged tile was released since the previous scene.
    bool settles = false;
};

namespace DockScene {

[[nodiscard]] Scene expanded(const DockLook& look);

/// A tile that wants attention while its dock is collapsed, and its place along the axis.
struct LineMark {
    std::uint32_t serial = 0;
    double along = 0;
};

/// The handle that an auto-hidden dock leaves at the display's edge.
[[nodiscard]] Scene collapsed(const Edge& edge, const std::vector<LineMark>& marks = {});

}
}
