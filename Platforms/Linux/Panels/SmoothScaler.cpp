#include "Panels/SmoothScaler.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vireline::x11 {
namespace {

using Channels = std::uint64_t;

constexpr Channels lowBytes = 0x00ff00ff00ff00ffU;
constexpr unsigned whole = 256;

constexpr Channels spread(std::uint32_t pixel) {
    return (pixel | Channels{pixel} << 24U) & lowBytes;
}

constexpr std::uint32_t gathered(Channels channels) {
    return static_cast<std::uint32_t>(channels | channels >> 24U);
}

/// Between two pixels; `weight` is the second one's, of 256.
constexpr Channels between(Channels first, Channels second, unsigned weight) {
    return ((first * (whole - weight) + second * weight) >> 8U) & lowBytes;
}

constexpr Channels faded(Channels channels, unsigned weight) {
    return ((channels * weight) >> 8U) & lowBytes;
}

/// A premultiplied pixel over another; divides by 255 as exactly as rounding can.
constexpr std::uint32_t over(Channels pixel, std::uint32_t below) {
    const auto alpha = static_cast<unsigned>(pixel >> 48U);
    constexpr Channels halves = 0x0080008000800080U;
    const Channels shining = spread(below) * (255 - alpha) + halves;
    return gathered(pixel + (((shining + ((shining >> 8U) & lowBytes)) >> 8U) & lowBytes));
}

std::span<const std::uint32_t> row(const QImage& image, int y) {
    return {reinterpret_cast<const std::uint32_t*>(image.constScanLine(y)),
            static_cast<std::size_t>(image.width())};
}

}

/// For the canvas's pixels from `begin` to `end` along one axis, where the picture reaches from
/// `start` over `length` and has `side` pixels of its own.
void SmoothScaler::findTaps(std::vector<Tap>& taps, int begin, int end, double start,
                            double length, int side) {
    const double ratio = side / length;
    taps.clear();
    for (int pixel = begin; pixel < end; ++pixel) {
        const double source = std::clamp((pixel + 0.5 - start) * ratio - 0.5, 0.0, side - 1.0);
        const int first = static_cast<int>(source);
        const double covered =
            std::min(pixel + 1.0, start + length) - std::max<double>(pixel, start);
        taps.push_back({first, std::min(first + 1, side - 1),
                        static_cast<unsigned>((source - first) * whole),
                        static_cast<unsigned>(std::clamp(covered, 0.0, 1.0) * whole + 0.5)});
    }
}

void SmoothScaler::mixRows(std::span<const std::uint32_t> first,
                           std::span<const std::uint32_t> second, unsigned weight) {
    for (std::size_t x = 0; x < line_.size(); ++x)
        line_[x] = between(spread(first[x]), spread(second[x]), weight);
}

void SmoothScaler::drawRow(std::span<std::uint32_t> target, unsigned cover) const {
    for (std::size_t x = 0; x < target.size(); ++x) {
        const Tap& tap = columns_[x];
        Channels pixel = between(line_[static_cast<std::size_t>(tap.first)],
                                 line_[static_cast<std::size_t>(tap.second)], tap.weight);
        if (const unsigned covered = tap.coverage * cover / whole; covered < whole)
            pixel = faded(pixel, covered);
        const auto alpha = pixel >> 48U;
        if (alpha == 255) {
            target[x] = gathered(pixel);
        } else if (alpha != 0) {
            target[x] = over(pixel, target[x]);
        }
    }
}

void SmoothScaler::draw(QImage& canvas, const QImage& picture, const QRectF& rect, int alpha,
                        const QRect& clip) {
    const QRect area = rect.toAlignedRect() & clip;
    if (area.isEmpty() || picture.isNull())
        return;
    findTaps(columns_, area.left(), area.right() + 1, rect.left(), rect.width(), picture.width());
    findTaps(rows_, area.top(), area.bottom() + 1, rect.top(), rect.height(), picture.height());
    line_.resize(static_cast<std::size_t>(picture.width()));
    const auto opacity = static_cast<unsigned>(alpha + (alpha >> 7));
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const Tap& tap = rows_[static_cast<std::size_t>(y - area.top())];
        mixRows(row(picture, tap.first), row(picture, tap.second), tap.weight);
        auto* const target = reinterpret_cast<std::uint32_t*>(canvas.scanLine(y)) + area.left();
        drawRow({target, static_cast<std::size_t>(area.width())}, tap.coverage * opacity / whole);
    }
}

}
