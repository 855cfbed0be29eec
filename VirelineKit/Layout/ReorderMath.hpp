/// Turns the offset of a dragged tile into the place where it would land and into the slides of the
/// tiles that make room. Offsets and slots are points along the dock's axis.
#pragma once

namespace vireline::ReorderMath {

/// One row of tiles with one of them in the user's hand.
struct Drag {
    int draggedIndex = 0;
    double offset = 0;
    /// A tile with its gap.
    double slot = 0;
    int count = 0;
};

/// The index where the dragged tile would land, within the row.
[[nodiscard]] int targetIndex(const Drag& drag);

/// How far the tile at `tileIndex` slides to make room; 0 for the dragged tile.
[[nodiscard]] double neighborOffset(int tileIndex, const Drag& drag);

}
