/// A tile's image, rendered on demand and cached in the few sizes in use.
#pragma once

#include "Icons/RasterImage.hpp"

#include <functional>
#include <vector>

namespace vireline::xdg {

class IconImage final : public RasterImage {
public:
    /// Renders the image at a side length in device pixels; never returns null.
    using Render = std::function<QImage(int side)>;

    IconImage(Size size, Render render) : RasterImage(size), render_(std::move(render)) {}

    [[nodiscard]] QImage exact(int side) const override;
    [[nodiscard]] QImage forScaling(double side, double largest) const override;

private:
    /// Two displays of different scale, at rest and magnified, plus one during a change.
    static constexpr std::size_t maximumKept = 5;
    static constexpr int maximumSide = 1024;

    Render render_;
    /// Most recently used last.
    mutable std::vector<QImage> kept_;
};

}
