#include "Icons/IconImage.hpp"

#include <algorithm>

namespace vireline::x11 {

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

/// Powers of two: the picture that is drawn is then always more than half of the one it comes from,
/// where sampling two by two pixels loses nothing.
QImage IconImage::forScaling(double side) const {
    constexpr int smallest = 32;
    int step = smallest;
    while (step < side && step < maximumSide) {
        step *= 2;
    }
    return exact(step);
}

}
