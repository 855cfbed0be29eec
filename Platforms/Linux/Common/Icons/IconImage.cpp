#include "Icons/IconImage.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::xdg {

QImage IconImage::exact(int side) const {
    side = std::clamp(side, 1, maximumSide);
    const auto known = std::ranges::find(kept_, side, &QImage::width);
    if (known != kept_.end()) {
        std::rotate(known, known + 1, kept_.end());
        return kept_.back();
    }
    if (kept_.size() == maximumKept)
        kept_.erase(kept_.begin());
    kept_.push_back(render_(side));
    return kept_.back();
}

/// Rendered at the largest size, so that the icon is sharp when it is fully grown.
QImage IconImage::forScaling(double side, double largest) const {
    int pictureSide = static_cast<int>(std::ceil(largest));
    while (pictureSide > 2 * side)
        pictureSide = (pictureSide + 1) / 2;
    return exact(pictureSide);
}

}
