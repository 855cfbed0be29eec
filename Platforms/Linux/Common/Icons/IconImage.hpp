/// An image as this platform paints it: square, in device pixels, rendered on demand and cached in
/// the few sizes in use.
#pragma once

#include "Platform/Applications/Icons.hpp"

#include <QImage>
#include <functional>
#include <vector>

namespace vireline::xdg {

class IconImage final : public Image {
public:
    /// Renders the image at a side length in device pixels; never returns null.
    using Render = std::function<QImage(int side)>;

    IconImage(Size size, Render render) : Image(size), render_(std::move(render)) {}

    /// The image rendered at exactly `side` device pixels, at least 1, to be drawn unscaled.
    [[nodiscard]] QImage exact(int side) const;

    /// An image that can be scaled down, by no more than half, to `side` device pixels, for an icon
    /// that grows up to `largest`. Only a few sizes are used, so that a growing icon is not
    /// rendered for every frame.
    [[nodiscard]] QImage forScaling(double side, double largest) const;

private:
    /// Two displays of different scale, at rest and magnified, plus one during a change.
    static constexpr std::size_t maximumKept = 5;
    static constexpr int maximumSide = 1024;

    Render render_;
    /// Most recently used last.
    mutable std::vector<QImage> kept_;
};

}
