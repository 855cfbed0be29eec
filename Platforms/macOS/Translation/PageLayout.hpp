/// Lays out a page of the welcome tour, in points from its top-left corner.
#pragma once

#include "Foundation/Geometry.hpp"

#include <span>
#include <vector>

namespace vireline::macos::PageLayout {

/// The sum of two nested paddings, 32 and 16.
inline constexpr double padding = 48;
inline constexpr double paragraphGap = 12;
inline constexpr double rowGap = 12;
inline constexpr double symbolSide = 22;
inline constexpr double dotDiameter = 7;
inline constexpr double otherDotsOpacity = 0.3;

[[nodiscard]] constexpr double width(Size page) noexcept {
    return page.width - 2 * padding;
}

[[nodiscard]] constexpr double featureTextWidth(Size page) noexcept {
    return width(page) - symbolSide - rowGap;
}

struct FeatureFrames {
    Rect symbol;
    Rect text;
    double bottom = 0;
};

/// A symbol and a text of this height beside it, vertically centred.
[[nodiscard]] FeatureFrames featureRow(Size page, double top, double textHeight);

/// The dots of the page indicator in the bottom line, starting at the leading edge.
[[nodiscard]] std::vector<Rect> dots(Size page, int count);

/// The buttons in the bottom line; the last one is at the trailing edge.
[[nodiscard]] std::vector<Rect> buttons(Size page, std::span<const Size> sizes);

}
