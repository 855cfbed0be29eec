/// Computes from the offset of a dragged tile where it would land, and how far other tiles slide to
/// make room. Offsets and slots are points along the dock's axis.
#pragma once

namespace vireline::ReorderMath {

/// A row of tiles, one of which is being dragged.
struct Drag {
    int draggedIndex = 0;
    double offset = 0;
    /// The length of a tile and its gap.
    double slot = 0;
    int count = 0;
};

/// The index where the dragged tile would land, within the row.
[[nodiscard]] int targetIndex(const Drag& drag);

/// How far the tile at `tileIndex` slides to make room; 0 for the dragged tile.
[[nodiscard]] double neighborOffset(int tileIndex, const Drag& drag);

}
