/// The tiles of one dock, with the state of each: its identity across scenes, its taps, and whether
/// it was just pressed.
#pragma once

#include "Foundation/ScopedHandle.hpp"
#include "Interaction/TapTracker.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Applications/Icons.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireline {

class IconStore;
class TrashService;

enum class TileKind { app, downloads, trash };

struct DockTile {
    TileKind kind = TileKind::app;
    /// A utility tile has a synthetic item.
    DockItem item;
    ImageHandle image;
    /// Identifies the tile for as long as it stays in the strip.
    std::uint32_t serial = 0;
    TapTracker taps;
    /// Looks pressed for a moment after a tap, until the timer fires.
    bool pulse = false;
    Timer pulseEnd;

    [[nodiscard]] bool isPinnedApp() const noexcept {
        return kind == TileKind::app && item.isPinned;
    }
};

class DockTiles {
public:
    /// Replaces the tiles with a list of apps, followed by the utility tiles whose folders are
    /// known. Tiles that existed before keep their state.
    void rebuild(std::span<const DockItem> items, IconStore& icons, const TrashService& trash);

    [[nodiscard]] std::vector<DockTile>& all() noexcept { return tiles_; }
    [[nodiscard]] const std::vector<DockTile>& all() const noexcept { return tiles_; }

    [[nodiscard]] bool has(TileKind kind) const;
    /// The tile's index in the strip; nullopt if the tile is gone.
    [[nodiscard]] std::optional<std::size_t> indexOf(std::uint32_t serial) const;
    /// Null if the tile is gone.
    [[nodiscard]] DockTile* find(std::uint32_t serial);

private:
    void add(std::vector<DockTile>& tiles, TileKind kind, const DockItem& item, ImageHandle image);

    std::vector<DockTile> tiles_;
    std::uint32_t lastSerial_ = 0;
};

}
