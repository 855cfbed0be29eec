#include "Painting/Pixels/SmoothScaler.hpp"

#include "Painting/Pixels/PixelPair.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace vireline::xdg {
/// Computes the taps for the canvas pixels from `begin` to `end` along one axis. The picture has
/// `side` pixels, and covers `length` canvas pixels from `start` on.
void SmoothScaler::findTaps(std::vector<Tap>& taps, int begin, int end, double start, double length,
                            int side) {
    const double ratio = side / length;
    taps.clear();
    for (int pixel = begin; pixel < end; ++pixel) {
        const double source = std::clamp((pixel + 0.5 - start) * ratio - 0.5, 0.0, side - 1.0);
        const auto first = static_cast<std::uint32_t>(source);
        const double covered =
            std::min(pixel + 1.0, start + length) - std::max<double>(pixel, start);
        const auto weight = static_cast<std::uint16_t>((source - first) * PixelPairs::whole);
        taps.push_back({.first = first,
                        .second = std::min(first + 1, static_cast<std::uint32_t>(side - 1)),
                        .weights = PixelPairs::everywhere(weight),
                        .coverage = static_cast<std::uint16_t>(
                            std::lround(std::clamp(covered, 0.0, 1.0) * PixelPairs::whole))});
    }
}

/// The last pixel of an odd row is paired with a dummy.
void SmoothScaler::mixRows(std::span<const std::uint32_t> first,
                           std::span<const std::uint32_t> second, PixelPairs::Channels weight) {
    const PixelPair weights = PixelPairs::of(weight, weight);
    std::size_t x = 0;
    for (; x + 1 < first.size(); x += 2) {
        const PixelPair pair = PixelPairs::between(PixelPairs::load(first.data() + x),
                                                   PixelPairs::load(second.data() + x), weights);
        std::memcpy(line_.data() + x, &pair, sizeof pair);
    }
    if (x == first.size())
        return;
    const std::array<std::uint32_t, 2> lastOfFirst{first[x], 0};
    const std::array<std::uint32_t, 2> lastOfSecond{second[x], 0};
    const PixelPair pair = PixelPairs::between(PixelPairs::load(lastOfFirst.data()),
                                               PixelPairs::load(lastOfSecond.data()), weights);
    std::memcpy(line_.data() + x, &pair, sizeof line_[x]);
}

/// The picture's interpolated pixels at two adjacent columns.
inline PixelPair SmoothScaler::pairAt(std::size_t x) const {
    const Tap& left = columns_[x];
    const Tap& right = columns_[x + 1];
    return PixelPairs::between(PixelPairs::of(line_[left.first], line_[right.first]),
                               PixelPairs::of(line_[left.second], line_[right.second]),
                               PixelPairs::of(left.weights, right.weights));
}

void SmoothScaler::drawRow(std::span<std::uint32_t> target, std::uint16_t cover) const {
    // Partial coverage occurs only at the picture's edges and while it fades.
    const auto blendPart = [&](std::size_t x, std::uint32_t* to) {
        const auto covered = [&](const Tap& tap) {
            return PixelPairs::everywhere(
                static_cast<std::uint16_t>(tap.coverage * cover / PixelPairs::whole));
        };
        const PixelPair pair = PixelPairs::faded(
            pairAt(x), PixelPairs::of(covered(columns_[x]), covered(columns_[x + 1])));
        PixelPairs::store(to, PixelPairs::over(pair, PixelPairs::load(to)));
    };
    const std::size_t pairs = target.size() / 2;
    for (std::size_t i = 0; i < pairs; ++i) {
        std::uint32_t* const to = target.data() + 2 * i;
        if (cover < PixelPairs::whole || i == 0 || 2 * i + 3 > target.size()) {
            blendPart(2 * i, to);
        } else {
            PixelPairs::store(to, PixelPairs::over(pairAt(2 * i), PixelPairs::load(to)));
        }
    }
    if (target.size() % 2 == 0)
        return;
    std::array<std::uint32_t, 2> last{target.back(), 0};
    blendPart(target.size() - 1, last.data());
    target.back() = last.front();
}

void SmoothScaler::draw(const Canvas& canvas, const Picture& picture, const QRectF& rect, int alpha,
                        const QRect& clip) {
    const QRect area = rect.toAlignedRect() & clip;
    if (area.isEmpty() || picture.area().isEmpty())
        return;
    findTaps(columns_, area.left(), area.right() + 1, rect.left(), rect.width(), picture.width());
    findTaps(rows_, area.top(), area.bottom() + 1, rect.top(), rect.height(), picture.height());
    // One extra column, because columns are drawn in pairs.
    columns_.push_back(columns_.back());
    const int evenWidth = picture.width() + picture.width() % 2;
    line_.resize(static_cast<std::size_t>(evenWidth));
    const int opacity = alpha + (alpha >> 7);
    const auto pictureRow = [&](std::uint32_t y) {
        return picture.row(0, static_cast<int>(y), picture.width());
    };
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const Tap& tap = rows_[static_cast<std::size_t>(y - area.top())];
        mixRows(pictureRow(tap.first), pictureRow(tap.second), tap.weights);
        drawRow(canvas.row(area.x(), y, area.width()),
                static_cast<std::uint16_t>(tap.coverage * opacity / PixelPairs::whole));
    }
}

}
