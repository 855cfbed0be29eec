/// Handles the primary button on the tiles of one dock: taps, and drags that reorder tiles. Owned
/// by the dock's view, whose tiles and layout it uses.
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
    /// All arguments must outlive this object.
    TileGestures(const DockViewContext& context, DockTiles& tiles,
                 const StripLayout::Request& layout, std::uint32_t displayID)
        : context_(context), tiles_(tiles), layout_(layout), displayID_(displayID) {}

    /// Called when the look of a tile has changed.
    std::function<void()> onInvalidate;
    /// Called with true when the drag of a tile starts, and with false when it ends.
    std::function<void(bool)> onDrag;

    /// The button was pressed over this tile, or over none if null. The previous press must have
    /// ended.
    void press(const DockTile* tile, Point at);
    void move(Point at);
    /// The button was released over this tile, or over none if null.
    void release(DockTile* tile, Point at, double time);
    /// Cancels a press. A dragged tile moves back to its place.
    void cancel() { end(false); }
    /// Acts as if the tile were pressed and released.
    void tap(DockTile& tile, double time);

    /// Cancels the press if its tile is gone, or is being dragged and is no longer pinned.
    void tilesChanged();

    [[nodiscard]] bool isPressed() const noexcept { return press_.has_value(); }
    /// The tile that is being dragged.
    [[nodiscard]] std::optional<std::uint32_t> dragged() const noexcept;
    /// The state of the drag; nullopt if there is none, or if the tile has left the list.
    [[nodiscard]] std::optional<ReorderMath::Drag> reorder() const;

private:
    /// A press of the primary button on a tile.
    struct Press {
        std::uint32_t serial = 0;
        Point at;
        /// The tile is being dragged, and is moved along the axis by `offset`.
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
