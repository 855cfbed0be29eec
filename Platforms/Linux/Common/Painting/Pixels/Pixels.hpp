/// Direct operations on images' pixels, without a painter's set-up cost per frame. All images have
/// 32-bit premultiplied colours.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vireline::xdg {

/// Direct access to the pixels of an image that must outlive this. `Pixel` is const for read-only
/// access.
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
    /// Pixels from one row to the next.
    std::size_t pitch_;
};

using Canvas = PixelGrid<std::uint32_t>;
using Picture = PixelGrid<const std::uint32_t>;

namespace Pixels {

/// The image must not be shared.
[[nodiscard]] Canvas canvas(QImage& image);
[[nodiscard]] Picture picture(const QImage& image);

/// A part of a picture, and the position of its corner on the canvas.
struct Piece {
    Picture picture;
    QRect part;
    QPoint at;
};

/// A whole picture.
[[nodiscard]] Piece pieceOf(const QImage& image, QPoint at);

/// Fills the rectangle with one premultiplied colour.
void fill(const Canvas& canvas, const QRect& rect, std::uint32_t pixel);

/// Copies the piece without blending, clipped to `clip`.
void copy(const Canvas& canvas, const Piece& piece, const QRect& clip);

/// Blends the piece over the canvas, clipped to `clip`; `alpha` is 0 to 255.
void blend(const Canvas& canvas, const Piece& piece, int alpha, const QRect& clip);

}
}
