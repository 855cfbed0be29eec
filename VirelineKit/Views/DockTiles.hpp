/// The tiles of one dock with the little that each remembers: who it is from scene to scene, its
/// taps, and whether it was just pressed.
#pragma once

#include "Foundation/ScopedHandle.hpp"
#include "Interaction/TapTracker.hpp"
#include "Model/DockItem.hpp"
#include "Platform/Icons.hpp"

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
    /// Names the tile for as long as it stays in the strip.
    std::uint32_t serial = 0;
    TapTracker taps;
    /// Pressed looks for a moment after a tap; the timer ends it.
    bool pulse = false;
    Timer pulseEnd;

    [[nodiscard]] bool isPinnedApp() const noexcept {
        return kind == TileKind::app && item.isPinned;
    }
};

class DockTiles {
public:
    /// Takes over a list of apps, and behind them the utility tiles whose folders are known. A tile
    /// that was there before keeps what it remembers.
    void rebuild(std::span<const DockItem> items, IconStore& icons, const TrashService& trash);

    [[nodiscard]] std::vector<DockTile>& all() noexcept { return tiles_; }
    [[nodiscard]] const std::vector<DockTile>& all() const noexcept { return tiles_; }

    [[nodiscard]] bool has(TileKind kind) const;
    /// Its place in the strip; nothing when that tile is gone.
    [[nodiscard]] std::optional<std::size_t> indexOf(std::uint32_t serial) const;
    /// Null when that tile is gone.
    [[nodiscard]] DockTile* find(std::uint32_t serial);

private:
    void add(std::vector<DockTile>& tiles, TileKind kind, const DockItem& item, ImageHandle image);

    std::vector<DockTile> tiles_;
    std::uint32_t lastSerial_ = 0;
};

}
