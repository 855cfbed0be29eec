#include "Translation/PageLayout.hpp"

#include "Translation/FormLayout.hpp"

#include <algorithm>
#include <array>

namespace vireline::macos::PageLayout {
namespace {

/// The height of the bottom line, which has the dots and the buttons.
constexpr double bottomLineHeight = 32;

constexpr double bottomLineTop(Size page) {
    return page.height - padding - bottomLineHeight;
}

}

FeatureFrames featureRow(Size page, double top, double textHeight) {
    const double height = std::max(symbolSide, textHeight);
    const std::array parts{Size{symbolSide, symbolSide}, Size{featureTextWidth(page), textHeight}};
    const auto frames = FormLayout::line({padding, top}, height, parts, rowGap);
    return {frames.at(0), frames.at(1), top + height};
}

std::vector<Rect> dots(Size page, int count) {
    const std::vector<Size> sizes(static_cast<std::size_t>(std::max(count, 0)),
                                  Size{dotDiameter, dotDiameter});
    return FormLayout::line({padding, bottomLineTop(page)}, bottomLineHeight, sizes, dotDiameter);
}

std::vector<Rect> buttons(Size page, std::span<const Size> sizes) {
    return FormLayout::trailingLine({page.width - padding, bottomLineTop(page)}, bottomLineHeight,
                                    sizes, FormLayout::gap);
}

}
