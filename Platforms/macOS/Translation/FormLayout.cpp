#include "Translation/FormLayout.hpp"

#include <algorithm>

namespace vireline::macos::FormLayout {
namespace {

double centred(double height, double within) {
    return (within - height) / 2;
}

double lengthOf(std::span<const Size> parts, double gapBetween) {
    double length = 0;
    for (const Size& part : parts)
        length += part.width;
    return parts.empty() ? 0 : length + gapBetween * static_cast<double>(parts.size() - 1);
}

}

RowFrames row(double rowWidth, const RowSizes& sizes) {
    const double lineHeight = std::max(sizes.titleHeight, sizes.control.height);
    RowFrames frames;
    frames.title = {0, rowPadding + centred(sizes.titleHeight, lineHeight),
                    titleWidth(rowWidth, sizes.control), sizes.titleHeight};
    frames.control = {rowWidth - sizes.control.width,
                      rowPadding + centred(sizes.control.height, lineHeight), sizes.control.width,
                      sizes.control.height};
    double bottom = rowPadding + lineHeight;
    if (sizes.captionHeight > 0) {
        frames.caption = {0, bottom + captionGap, rowWidth, sizes.captionHeight};
        bottom = frames.caption.maxY();
    }
    if (sizes.statusHeight > 0) {
        frames.status = {0, bottom + gap, rowWidth, sizes.statusHeight};
        bottom = frames.status.maxY();
    }
    frames.height = bottom + rowPadding;
    return frames;
}

SectionFrames section(double formWidth, double top, double titleHeight,
                      std::span<const double> rowHeights) {
    constexpr double separatorHeight = 1;
    SectionFrames frames;
    frames.title = {margin, top, formWidth - 2 * margin, titleHeight};
    double bottom = 0;
    for (const double height : rowHeights) {
        if (!frames.rowTops.empty())
            frames.separators.push_back({boxPadding, bottom, rowWidth(formWidth), separatorHeight});
        frames.rowTops.push_back(bottom);
        bottom += height;
    }
    frames.box = {margin, frames.title.maxY() + titleGap, formWidth - 2 * margin, bottom};
    frames.bottom = frames.box.maxY();
    return frames;
}

std::vector<Rect> line(Point origin, double height, std::span<const Size> parts,
                       double gapBetween) {
    std::vector<Rect> frames;
    double x = origin.x;
    for (const Size& part : parts) {
        frames.push_back({x, origin.y + centred(part.height, height), part.width, part.height});
        x += part.width + gapBetween;
    }
    return frames;
}

std::vector<Rect> trailingLine(Point trailing, double height, std::span<const Size> parts,
                               double gapBetween) {
    return line({trailing.x - lengthOf(parts, gapBetween), trailing.y}, height, parts, gapBetween);
}

}
