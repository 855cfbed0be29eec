/// What each tile of one dock shows of its app and of the gestures on it.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Layout/ReorderMath.hpp"
#include "Views/Contents/DockScene.hpp"
#include "Views/Contents/DockTiles.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireline {

class DockViewModel;
class MotionSettings;

class TileLooks : private NonCopyable {
public:
    /// The gestures on the tiles at this moment.
    struct Gestures {
        /// The serial of the tile that would receive the files of a drag.
        std::optional<std::uint32_t> dropTarget = {};
        /// The serial of the tile that is being dragged.
        std::optional<std::uint32_t> dragged = {};
        std::optional<ReorderMath::Drag> reorder = {};
    };

    /// All arguments must outlive this object.
    TileLooks(const DockViewModel& model, const MotionSettings& motionSettings)
        : model_(model), motionSettings_(motionSettings) {}

    /// The looks of all tiles in the next scene, with what has changed since the previous call.
    [[nodiscard]] std::vector<TileLook> next(std::span<const DockTile> tiles,
                                             const Gestures& gestures);

    /// The marks of the tiles that want attention. `frames` must have one entry for each tile.
    [[nodiscard]] std::vector<DockScene::LineMark>
    lineMarks(std::span<const DockTile> tiles, const StripFrames& frames, const Edge& edge) const;

private:
    [[nodiscard]] TileLook lookOf(const DockTile& tile, int index, const Gestures& gestures) const;
    void addAppState(TileLook& look, const DockItem& item) const;

    const DockViewModel& model_;
    const MotionSettings& motionSettings_;
    /// Those of the previous call.
    std::optional<std::uint32_t> shownDropTarget_;
    std::optional<std::uint32_t> shownDragged_;
};

}
