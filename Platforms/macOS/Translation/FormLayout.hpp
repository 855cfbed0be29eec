/// Lays out the settings form and the welcome tour. Lengths are in points; y grows downwards from
/// the top of the form, of a row or of a page.
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

/// The width of a row, between the paddings of its box, in a form of this width.
[[nodiscard]] constexpr double rowWidth(double formWidth) noexcept {
    return formWidth - 2 * (margin + boxPadding);
}

/// The width available to a row's title beside its control.
[[nodiscard]] constexpr double titleWidth(double rowWidth, Size control) noexcept {
    return rowWidth - control.width - gap;
}

/// The sizes of a row's parts. A height of 0 means that the row does not have the part.
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

/// Title and control in one line, vertically centred, the control at the trailing end. Caption and
/// status below, as wide as the row.
[[nodiscard]] RowFrames row(double rowWidth, const RowSizes& sizes);

struct SectionFrames {
    Rect title;
    Rect box;
    /// The top of each row within the box.
    std::vector<double> rowTops;
    /// Between the rows, within the box.
    std::vector<Rect> separators;
    double bottom = 0;
};

/// A titled box with rows of these heights, starting at `top`.
[[nodiscard]] SectionFrames section(double formWidth, double top, double titleHeight,
                                    std::span<const double> rowHeights);

/// The frames of parts in a line that starts at `origin`, vertically centred.
[[nodiscard]] std::vector<Rect> line(Point origin, double height, std::span<const Size> parts,
                                     double gapBetween);

/// The same, for a line that ends at `trailing`.
[[nodiscard]] std::vector<Rect> trailingLine(Point trailing, double height,
                                             std::span<const Size> parts, double gapBetween);

}
