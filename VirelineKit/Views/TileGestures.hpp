/// The primary button on the tiles of one dock: taps, and drags that change a tile's place. Owned
/// by the dock's view, whose tiles and layout it reads.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/Lifetime.hpp"
#include "Layout/ReorderMath.hpp"

#include <cstdint>
#include <functional>
#include <optional>

namespace vireline {

class DockTiles;
struct DockTile;
struct DockViewContext;

namespace StripLayout {
struct Request;
}

class TileGestures {
public:
    /// Everything outlives the gestures.
    TileGestures(const DockViewContext& context, DockTiles& tiles,
                 const StripLayout::Request& layout, std::uint32_t displayID)
        : context_(context), tiles_(tiles), layout_(layout), displayID_(displayID) {}

    /// A tile looks different.
    std::function<void()> onInvalidate;
    /// A tile is being dragged from now on, or no longer.
    std::function<void(bool)> onDrag;

    /// The button goes down on that tile; null beside the tiles. No press may be under way.
    void press(const DockTile* tile, Point at);
    void move(Point at);
    /// Over that tile; null beside the tiles.
    void release(DockTile* tile, Point at, double time);
    /// Ends a press without effect; a tile that is dragged goes home.
    void cancel() { end(false); }
    /// As if the tile were pressed and released.
    void tap(DockTile& tile, double time);

    /// Ends the press of a tile that is gone, or can no longer be dragged.
    void tilesChanged();

    [[nodiscard]] bool isPressed() const noexcept { return press_.has_value(); }
    /// The tile that is being dragged.
    [[nodiscard]] std::optional<std::uint32_t> dragged() const noexcept;
    /// Where that tile is and would go; nothing once it has left the list.
    [[nodiscard]] std::optional<ReorderMath::Drag> reorder() const;

private:
    /// The button is down on a tile.
    struct Press {
        std::uint32_t serial = 0;
        Point at;
        /// The tile has come off: it follows the pointer along the axis by `offset`.
        bool isDragging = false;
        double offset = 0;
    };

    void drag(Press& press, Point at);
    void end(bool isDropped);
    [[nodiscard]] bool canHold(const Press& press) const;
    [[nodiscard]] bool isPinnedApp(std::uint32_t serial) const;
    void act(const DockTile& tile, bool isDouble) const;

    const DockViewContext& context_;
    DockTiles& tiles_;
    const StripLayout::Request& layout_;
    std::uint32_t displayID_;
    std::optional<Press> press_;
    Lifetime lifetime_;
};

}
