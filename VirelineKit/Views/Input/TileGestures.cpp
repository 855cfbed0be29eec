#include "Views/Input/TileGestures.hpp"

#include "Interaction/DockActions.hpp"
#include "Layout/StripLayout.hpp"
#include "Model/DockMetrics.hpp"
#include "Platform/Desktop/PointerSettings.hpp"
#include "Platform/RunLoop.hpp"
#include "Views/Contents/DockTiles.hpp"
#include "Views/Contents/DockViewContext.hpp"

#include <cmath>
#include <string>

namespace vireline {
namespace {

constexpr double pulseSeconds = 0.1;
/// The distance in points after which a press on a tile becomes a drag.
constexpr double dragThreshold = 4;

}

void TileGestures::press(const DockTile* tile, Point at) {
    press_ =
        tile != nullptr ? std::optional{Press{.serial = tile->serial, .at = at}} : std::nullopt;
}

void TileGestures::move(Point at) {
    if (press_)
        drag(*press_, at);
}

void TileGestures::release(DockTile* tile, Point at, double time) {
    if (press_ && press_->isDragging) {
        drag(*press_, at);
        return end(true);
    }
    const bool isTap = tile != nullptr && press_ && press_->serial == tile->serial;
    press_.reset();
    if (isTap)
        tap(*tile, time);
}

void TileGestures::tap(DockTile& tile, double time) {
    tile.pulse = true;
    tile.pulseEnd =
        context_.runLoop.after(pulseSeconds, lifetime_.guard([this, serial = tile.serial] {
            DockTile* const pulsing = tiles_.find(serial);
            if (pulsing != nullptr)
                pulsing->pulse = false;
            onInvalidate();
        }));
    const bool isDouble =
        tile.kind == TileKind::app &&
        tile.taps.registerTap(time, context_.pointerSettings.doubleClickInterval()) ==
            TapTracker::Resolution::doubled;
    onInvalidate();
    act(tile, isDouble);
}

/// The action may replace the tiles, so use only copies.
void TileGestures::act(const DockTile& tile, bool isDouble) const {
    const DockItem item = tile.item;
    if (tile.kind != TileKind::app)
        context_.actions.openFolder(item.url);
    else if (isDouble)
        context_.actions.doubleClick(item, displayID_);
    else
        context_.actions.leftClick(item, displayID_);
}

void TileGestures::tilesChanged() {
    if (press_ && !canHold(*press_))
        end(false);
}

bool TileGestures::canHold(const Press& press) const {
    return press.isDragging ? isPinnedApp(press.serial) : tiles_.find(press.serial) != nullptr;
}

void TileGestures::drag(Press& press, Point at) {
    const Point moved{at.x - press.at.x, at.y - press.at.y};
    const bool comesOff = !press.isDragging && std::hypot(moved.x, moved.y) >= dragThreshold &&
                          isPinnedApp(press.serial);
    if (!press.isDragging && !comesOff)
        return;
    press.isDragging = true;
    press.offset = layout_.edge.along(moved);
    if (comesOff)
        onDrag(true);
}

bool TileGestures::isPinnedApp(std::uint32_t serial) const {
    const DockTile* const tile = tiles_.find(serial);
    return tile != nullptr && tile->isPinnedApp();
}

void TileGestures::end(bool isDropped) {
    const bool isDragging = dragged().has_value();
    const auto drag = reorder();
    press_.reset();
    if (!isDragging)
        return;
    onDrag(false);
    // The tile may have been removed from the list during the drag.
    if (!drag)
        return;
    const int target = ReorderMath::targetIndex(*drag);
    if (!isDropped || target == drag->draggedIndex)
        return;
    const auto& tile = tiles_.all()[static_cast<std::size_t>(drag->draggedIndex)];
    context_.actions.moveApp(std::string{tile.item.id}, target);
}

std::optional<std::uint32_t> TileGestures::dragged() const noexcept {
    return press_ && press_->isDragging ? std::optional{press_->serial} : std::nullopt;
}

std::optional<ReorderMath::Drag> TileGestures::reorder() const {
    if (!press_ || !press_->isDragging)
        return std::nullopt;
    const auto index = tiles_.indexOf(press_->serial);
    if (!index)
        return std::nullopt;
    return ReorderMath::Drag{.draggedIndex = static_cast<int>(*index),
                             .offset = press_->offset,
                             .slot = layout_.iconSize + DockMetrics::iconSpacing,
                             .count = layout_.counts.pinned};
}

}
