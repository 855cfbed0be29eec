/// An image as this platform paints it: square pictures in device pixels, made when they are first
/// needed at a size.
#pragma once

#include "Platform/Icons.hpp"

#include <QImage>

namespace vireline::x11 {

class RasterImage : public Image {
public:
    using Image::Image;

    /// The picture made for exactly `side` device pixels, at least 1, to be drawn one to one.
    [[nodiscard]] virtual QImage exact(int side) const = 0;

    /// A picture from which one of `side` device pixels can be drawn by scaling down to no less
    /// than half, for an icon that grows up to `largest`. There are only a few of these, so that a
    /// growing icon does not ask for a new one each frame.
    [[nodiscard]] virtual QImage forScaling(double side, double largest) const = 0;
};

}
