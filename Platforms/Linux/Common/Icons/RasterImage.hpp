/// An image as this platform paints it: square, in device pixels, rendered on first use of each
/// size.
#pragma once

#include "Platform/Icons.hpp"

#include <QImage>

namespace vireline::xdg {

class RasterImage : public Image {
public:
    using Image::Image;

    /// The image rendered at exactly `side` device pixels, at least 1, to be drawn unscaled.
    [[nodiscard]] virtual QImage exact(int side) const = 0;

    /// An image that can be scaled down, by no more than half, to `side` device pixels, for an icon
    /// that grows up to `largest`. Only a few sizes are used, so that a growing icon is not
    /// rendered for every frame.
    [[nodiscard]] virtual QImage forScaling(double side, double largest) const = 0;
};

}
