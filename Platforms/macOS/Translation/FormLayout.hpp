/// Where the parts of the settings form and of the welcome tour stand. Lengths are points; y grows
/// downwards from the top of the form, of a row or of a page.
#pragma once

#include "Foundation/Geometry.hpp"

#include <cstddef>
#include <span>
#include <vector>

namespace vireline::macos::FormLayout {

inline constexpr double margin = 20;
inline constexpr double boxPadding = 12;
inline constexpr double rowPadding = 9;
inline constexpr double gap = 8;
inline constexpr double sectionGap = 20;
inline constexpr double titleGap = 6;
inline constexpr double captionGap = 4;

/// Between the box's paddings, in a form of this width.
[[nodiscard]] constexpr double rowWidth(double formWidth) noexcept {
    return formWidth - 2 * (margin + boxPadding);
}

/// What a row's title may take beside its control.
[[nodiscard]] constexpr double titleWidth(double rowWidth, Size control) noexcept {
    return rowWidth - control.width - gap;
}

/// What a row's parts need; a height of 0 stands for a part that is not there.
struct RowSizes {
    double titleHeight = 0;
    Size control;
    double captionHeight = 0;
    double statusHeight = 0;
};

struct RowFrames {
    Rect title;
    Rect control;
    Rect caption;
    Rect status;
    double height = 0;
};

/// Title and control in one line, each in its middle, the control at the trailing end; caption and
/// status below, as wide as the row.
[[nodiscard]] RowFrames row(double rowWidth, const RowSizes& sizes);

struct SectionFrames {
    Rect title;
    Rect box;
    /// Each row's top within the box.
    std::vector<double> rowTops;
    /// Between the rows, within the box.
    std::vector<Rect> separators;
    double bottom = 0;
};

/// A titled box of rows of these heights, below `top`.
[[nodiscard]] SectionFrames section(double formWidth, double top, double titleHeight,
                                    std::span<const double> rowHeights);

/// The parts of a line, from its leading end on, each in the line's middle.
[[nodiscard]] std::vector<Rect> line(Point origin, double height, std::span<const Size> parts,
                                     double gapBetween);

/// The same, ending at `trailing`.
[[nodiscard]] std::vector<Rect> trailingLine(Point trailing, double height,
                                             std::span<const Size> parts, double gapBetween);

}
