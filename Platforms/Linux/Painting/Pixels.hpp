/// Work on the pixels of images, without the set-up that a painter needs for every frame. All
/// images have premultiplied colours of 32 bits.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vireline::x11 {

/// The pixels of an image that lives longer, reached directly. `Pixel` is const for those that are
/// only read.
template <class Pixel>
class PixelGrid {
public:
    PixelGrid(Pixel* pixels, QSize size, std::size_t pitch)
        : pixels_(pixels), size_(size), pitch_(pitch) {}

    [[nodiscard]] QRect area() const { return {{0, 0}, size_}; }
    [[nodiscard]] int width() const { return size_.width(); }
    [[nodiscard]] int height() const { return size_.height(); }

    [[nodiscard]] std::span<Pixel> row(int x, int y, int length) const {
        return {pixels_ + static_cast<std::size_t>(y) * pitch_ + x,
                static_cast<std::size_t>(length)};
    }

private:
    Pixel* pixels_;
    QSize size_;
    /// From one row to the next.
    std::size_t pitch_;
};

using Canvas = PixelGrid<std::uint32_t>;
using Picture = PixelGrid<const std::uint32_t>;

namespace Pixels {

/// The image must not be shared.
[[nodiscard]] Canvas canvas(QImage& image);
[[nodiscard]] Picture picture(const QImage& image);

/// A part of a picture and where on the canvas its corner goes.
struct Piece {
    Picture picture;
    QRect part;
    QPoint at;
};

/// All of a picture.
[[nodiscard]] Piece pieceOf(const QImage& image, QPoint at);

/// Sets what lies on the canvas to one premultiplied colour.
void fill(const Canvas& canvas, const QRect& rect, std::uint32_t pixel);

/// Puts the piece in place of what is there, inside of `clip`.
void put(const Canvas& canvas, const Piece& piece, const QRect& clip);

/// Lays the piece over what is there, inside of `clip`; `alpha` is of 255.
void lay(const Canvas& canvas, const Piece& piece, int alpha, const QRect& clip);

}
}
