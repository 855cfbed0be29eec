#include "Painting/Pixels/Pixels.hpp"

#include "Painting/Pixels/PixelPair.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

namespace vireline::xdg::Pixels {
namespace {

using Row = std::span<std::uint32_t>;
using ConstRow = std::span<const std::uint32_t>;

std::size_t pitchOf(const QImage& image) {
    return static_cast<std::size_t>(image.bytesPerLine()) / sizeof(std::uint32_t);
}

/// Where a piece overlaps the clip and the canvas, in the coordinates of both.
struct Overlap {
    QRect target;
    QPoint source;
};

Overlap overlapOf(const Canvas& canvas, const Piece& piece, const QRect& clip) {
    const QRect part = piece.part & piece.picture.area();
    const QPoint corner = piece.at + part.topLeft() - piece.part.topLeft();
    const QRect target = QRect{corner, part.size()} & clip & canvas.area();
    return {target, part.topLeft() + target.topLeft() - corner};
}

/// Calls `work` with each overlapping row of the canvas and of the piece.
template <class Work>
void forEachRow(const Canvas& canvas, const Piece& piece, const QRect& clip, const Work& work) {
    const auto [target, source] = overlapOf(canvas, piece, clip);
    for (int i = 0; i < target.height(); ++i) {
        work(canvas.row(target.x(), target.y() + i, target.width()),
             piece.picture.row(source.x(), source.y() + i, target.width()));
    }
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

Canvas canvas(QImage& image) {
    return {reinterpret_cast<std::uint32_t*>(image.bits()), image.size(), pitchOf(image)};
}

Picture picture(const QImage& image) {
    return {reinterpret_cast<const std::uint32_t*>(image.constBits()), image.size(),
            pitchOf(image)};
}

Piece pieceOf(const QImage& image, QPoint at) {
    return {picture(image), image.rect(), at};
}

void fill(const Canvas& canvas, const QRect& rect, std::uint32_t pixel) {
    const QRect area = rect & canvas.area();
    for (int i = 0; i < area.height(); ++i)
        std::ranges::fill(canvas.row(area.x(), area.y() + i, area.width()), pixel);
}

void copy(const Canvas& canvas, const Piece& piece, const QRect& clip) {
    forEachRow(canvas, piece, clip,
               [](Row target, ConstRow source) { std::ranges::copy(source, target.begin()); });
}

void blend(const Canvas& canvas, const Piece& piece, int alpha, const QRect& clip) {
    const auto opacity = static_cast<std::uint16_t>(alpha + (alpha >> 7));
    forEachRow(canvas, piece, clip,
               [opacity](Row target, ConstRow source) { layRow(target, source, opacity); });
}

}
