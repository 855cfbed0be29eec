#include "Views/Contents/TileLooks.hpp"

#include "Model/DockViewModel.hpp"
#include "Platform/Desktop/MotionSettings.hpp"

namespace vireline {

std::vector<TileLook> TileLooks::next(std::span<const DockTile> tiles, const Gestures& gestures) {
    std::vector<TileLook> looks;
    looks.reserve(tiles.size());
    int index = 0;
    for (const DockTile& tile : tiles)
        looks.push_back(lookOf(tile, index++, gestures));
    shownDropTarget_ = gestures.dropTarget;
    shownDragged_ = gestures.dragged;
    return looks;
}

std::vector<DockScene::LineMark> TileLooks::lineMarks(std::span<const DockTile> tiles,
                                                      const StripFrames& frames,
                                                      const Edge& edge) const {
    std::vector<DockScene::LineMark> marks;
    const auto& marked = model_.marked.get();
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const DockTile& tile = tiles[i];
        if (tile.kind == TileKind::app && marked.contains(tile.item.id))
            marks.push_back({tile.serial, edge.along(frames.tiles.at(i).hit.center())});
    }
    return marks;
}

TileLook TileLooks::lookOf(const DockTile& tile, int index, const Gestures& gestures) const {
    TileLook look;
    look.serial = tile.serial;
    look.image = tile.image;
    look.isRunning = tile.item.isRunning;
    if (tile.kind == TileKind::app)
        addAppState(look, tile.item);
    look.isPulsing = tile.pulse;
    look.isDropTargeted = gestures.dropTarget == tile.serial;
    look.wasDropTargeted = shownDropTarget_ == tile.serial;
    look.wasBeingDragged = shownDragged_ == tile.serial;
    if (const auto& drag = gestures.reorder; drag && tile.isPinnedApp()) {
        look.isBeingDragged = index == drag->draggedIndex;
        look.slide = look.isBeingDragged ? drag->offset : ReorderMath::neighborOffset(index, *drag);
    }
    return look;
}

void TileLooks::addAppState(TileLook& look, const DockItem& item) const {
    look.isLaunching = model_.launching.get().contains(item.id);
    const auto& statuses = model_.statuses.get();
    if (const auto found = statuses.find(item.id); found != statuses.end()) {
        const TileStatus& status = found->second;
        if (status.count)
            look.badge = TileStatuses::badge(*status.count);
        look.progress = status.progress;
    }
    look.wantsAttention = model_.marked.get().contains(item.id);
    look.isBobbing = model_.bobbing.get().contains(item.id) && !motionSettings_.reducesMotion();
}

}
