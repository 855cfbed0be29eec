/// The picture of one tile, rendered on demand and kept in the few sizes that are in use.
#pragma once

#include "Icons/RasterImage.hpp"

#include <functional>
#include <vector>

namespace vireline::x11 {

class IconImage final : public RasterImage {
public:
    /// Makes the picture at a side length in device pixels; never null.
    using Render = std::function<QImage(int side)>;

    IconImage(Size size, Render render) : RasterImage(size), render_(std::move(render)) {}

    [[nodiscard]] QImage exact(int side) const override;
    [[nodiscard]] QImage forScaling(double side, double largest) const override;

private:
    /// Displays of two scales at rest and magnified, and one on its way out.
    static constexpr std::size_t maximumKept = 5;
    static constexpr int maximumSide = 1024;

    Render render_;
    /// The most recently used last.
    mutable std::vector<QImage> kept_;
};

}
