/// Work on the pixels of images, without the set-up that a painter needs for every frame. All
/// images have premultiplied colours of 32 bits.
#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <cstdint>

namespace vireline::x11::Pixels {

/// A part of a picture and where on the canvas its corner goes.
struct Piece {
    const QImage& picture;
    QRect part;
    QPoint at;
};

/// All of a picture.
[[nodiscard]] inline Piece pieceOf(const QImage& picture, QPoint at) {
    return {picture, picture.rect(), at};
}

/// Sets what lies on the canvas to one premultiplied colour.
void fill(QImage& canvas, const QRect& rect, std::uint32_t pixel);

/// Puts the piece in place of what is there, inside of `clip`.
void put(QImage& canvas, const Piece& piece, const QRect& clip);

/// Lays the piece over what is there, inside of `clip`; `alpha` is of 255.
void lay(QImage& canvas, const Piece& piece, int alpha, const QRect& clip);

}
