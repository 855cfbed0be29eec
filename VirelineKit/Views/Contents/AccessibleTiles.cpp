#include "Views/Contents/AccessibleTiles.hpp"

#include <cmath>
#include <string>

namespace vireline::AccessibleTiles {
namespace {

std::string valueOf(const DockItem& item, const DockViewModel& model) {
    std::string value = item.isRunning ? "running" : "not running";
    const auto& statuses = model.statuses.get();
    if (const auto found = statuses.find(item.id); found != statuses.end()) {
        const TileStatus& status = found->second;
        if (status.count)
            value += ", badge " + std::to_string(*status.count);
        if (status.progress) {
            constexpr double percent = 100;
            value += ", " + std::to_string(std::lround(*status.progress * percent)) + " percent";
        }
    }
    return model.marked.get().contains(item.id) ? value + ", wants attention" : value;
}

}

std::vector<AccessibleTile> describe(std::span<const DockTile> tiles, const StripFrames& frames,
                                     const DockViewModel& model) {
    std::vector<AccessibleTile> described;
    described.reserve(tiles.size());
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const DockTile& tile = tiles[i];
        const bool isApp = tile.kind == TileKind::app;
        AccessibleTile& made = described.emplace_back();
        made.id = tile.serial;
        made.label = tile.item.name;
        if (isApp)
            made.value = valueOf(tile.item, model);
        made.frame = frames.tiles.at(i).hit;
        made.hasMenu = isApp;
    }
    return described;
}

}
