#include "Panels/Pixels.hpp"

#include "Panels/PixelPair.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace vireline::x11::Pixels {
namespace {

using Row = std::span<std::uint32_t>;
using ConstRow = std::span<const std::uint32_t>;

/// Where a piece meets the clip and the canvas, on both sides.
struct Overlap {
    QRect target;
    QPoint source;

    [[nodiscard]] Row targetRow(QImage& canvas, int i) const {
        auto* const line = reinterpret_cast<std::uint32_t*>(canvas.scanLine(target.top() + i));
        return Row{line, static_cast<std::size_t>(canvas.width())}.subspan(
            static_cast<std::size_t>(target.left()), static_cast<std::size_t>(target.width()));
    }
    [[nodiscard]] ConstRow sourceRow(const QImage& picture, int i) const {
        const auto* const line =
            reinterpret_cast<const std::uint32_t*>(picture.constScanLine(source.y() + i));
        return ConstRow{line, static_cast<std::size_t>(picture.width())}.subspan(
            static_cast<std::size_t>(source.x()), static_cast<std::size_t>(target.width()));
    }
};

Overlap overlapOf(const QImage& canvas, const Piece& piece, const QRect& clip) {
    const QRect part = piece.part & piece.picture.rect();
    const QPoint corner = piece.at + part.topLeft() - piece.part.topLeft();
    const QRect target = QRect{corner, part.size()} & clip & canvas.rect();
    return {target, part.topLeft() + target.topLeft() - corner};
}

PixelPair mixed(PixelPair pixels, PixelPair below, std::uint16_t opacity) {
    if (opacity < PixelPairs::whole)
        pixels = PixelPairs::faded(pixels, PixelPairs::all(opacity));
    return PixelPairs::over(pixels, below);
}

void layRow(Row target, ConstRow source, std::uint16_t opacity) {
    std::size_t x = 0;
    for (; x + 1 < target.size(); x += 2) {
        const std::uint32_t* const from = source.data() + x;
        std::uint32_t* const to = target.data() + x;
        if ((from[0] | from[1]) != 0)
            PixelPairs::store(to, mixed(PixelPairs::load(from), PixelPairs::load(to), opacity));
    }
    if (x == target.size())
        return;
    const std::array<std::uint32_t, 2> from{source[x], 0};
    std::array<std::uint32_t, 2> to{target[x], 0};
    PixelPairs::store(to.data(),
                      mixed(PixelPairs::load(from.data()), PixelPairs::load(to.data()), opacity));
    target[x] = to[0];
}

}

void fill(QImage& canvas, const QRect& rect, std::uint32_t pixel) {
    const Overlap overlap{rect & canvas.rect(), {}};
    for (int i = 0; i < overlap.target.height(); ++i)
        std::ranges::fill(overlap.targetRow(canvas, i), pixel);
}

void put(QImage& canvas, const Piece& piece, const QRect& clip) {
    const Overlap overlap = overlapOf(canvas, piece, clip);
    for (int i = 0; i < overlap.target.height(); ++i)
        std::ranges::copy(overlap.sourceRow(piece.picture, i),
                          overlap.targetRow(canvas, i).begin());
}

void lay(QImage& canvas, const Piece& piece, int alpha, const QRect& clip) {
    const Overlap overlap = overlapOf(canvas, piece, clip);
    const auto opacity = static_cast<std::uint16_t>(alpha + (alpha >> 7));
    for (int i = 0; i < overlap.target.height(); ++i)
        layRow(overlap.targetRow(canvas, i), overlap.sourceRow(piece.picture, i), opacity);
}

}
