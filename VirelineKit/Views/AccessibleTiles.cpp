#include "Views/AccessibleTiles.hpp"

namespace vireline::AccessibleTiles {

std::vector<AccessibleTile> describe(std::span<const DockTile> tiles, const StripFrames& frames) {
    std::vector<AccessibleTile> described;
    described.reserve(tiles.size());
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const DockTile& tile = tiles[i];
        const bool isApp = tile.kind == TileKind::app;
        AccessibleTile& made = described.emplace_back();
        made.id = tile.serial;
        made.label = tile.item.name;
        if (isApp)
            made.value = tile.item.isRunning ? "running" : "not running";
        made.frame = frames.tiles.at(i).hit;
        made.hasMenu = isApp;
    }
    return described;
}

}
