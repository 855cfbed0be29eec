/// The looks of a dock: where everything lies and how it stands, as nodes to paint.
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

/// How one tile stands.
struct TileLook {
    /// Names the tile from scene to scene.
    std::uint32_t serial = 0;
    ImageHandle image = {};
    bool isRunning = false;
    bool isLaunching = false;
    /// For a moment after a tap.
    bool isPulsing = false;
    bool isDropTargeted = false;
    bool isBeingDragged = false;
    /// The same in the scene before.
    bool wasDropTargeted = false;
    bool wasBeingDragged = false;
    /// Along the axis: with the pointer, or aside for the tile that is dragged.
    double slide = 0;
};

/// The name of one of the tiles.
struct LabelLook {
    std::size_t tile = 0;
    std::string text;
};

struct DockLook {
    Edge edge;
    const StripFrames& frames;
    /// One for each of the frames' tiles.
    std::vector<TileLook> tiles;
    std::optional<LabelLook> label;
    /// The tiles are others than in the scene before.
    bool listChanged = false;
    /// A dragged tile was let go since the scene before.
    bool settles = false;
};

namespace DockScene {

[[nodiscard]] Scene expanded(const DockLook& look);

/// The handle that an auto-hidden dock leaves at the display's edge.
[[nodiscard]] Scene collapsed(const Edge& edge);

}
}
