#include "Views/Contents/DockTiles.hpp"

#include "Interaction/TrashService.hpp"
#include "Sources/IconStore.hpp"

#include <algorithm>
#include <utility>

namespace vireline {

void DockTiles::rebuild(std::span<const DockItem> items, IconStore& icons,
                        const TrashService& trash) {
    std::vector<DockTile> tiles;
    tiles.reserve(items.size() + 2);
    for (const DockItem& item : items) {
        add(tiles, TileKind::app, item, icons.icon(item.url.path(), item.id));
    }
    if (const auto url = trash.downloadsURL()) {
        add(tiles, TileKind::downloads, {IconStore::downloadsKey, "Downloads", *url},
            icons.icon(url->path(), IconStore::downloadsKey));
    }
    if (const auto url = trash.trashURL()) {
        add(tiles, TileKind::trash, {IconStore::trashKey, "Trash", *url}, icons.trashIcon());
    }
    tiles_ = std::move(tiles);
}

/// Reuses an old tile with the same identifier. If there are several, they are matched in order.
void DockTiles::add(std::vector<DockTile>& tiles, TileKind kind, const DockItem& item,
                    ImageHandle image) {
    DockTile tile;
    const auto before = std::ranges::find_if(
        tiles_, [&](const DockTile& old) { return old.serial != 0 && old.item.id == item.id; });
    if (before != tiles_.end()) {
        tile = std::move(*before);
        before->serial = 0;
    } else {
        tile.serial = ++lastSerial_;
    }
    tile.kind = kind;
    tile.item = item;
    tile.image = std::move(image);
    tiles.push_back(std::move(tile));
}

bool DockTiles::has(TileKind kind) const {
    return std::ranges::any_of(tiles_, [=](const DockTile& tile) { return tile.kind == kind; });
}

std::optional<std::size_t> DockTiles::indexOf(std::uint32_t serial) const {
    const auto found = std::ranges::find(tiles_, serial, &DockTile::serial);
    if (found == tiles_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - tiles_.begin());
}

DockTile* DockTiles::find(std::uint32_t serial) {
    const auto index = indexOf(serial);
    return index ? &tiles_[*index] : nullptr;
}

}
