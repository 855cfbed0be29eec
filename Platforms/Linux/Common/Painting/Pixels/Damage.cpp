#include "Painting/Pixels/Damage.hpp"

#include <algorithm>
#include <cstdint>

namespace vireline::xdg {
namespace {

bool touch(const QRect& a, const QRect& b) {
    return a.adjusted(-1, -1, 1, 1).intersects(b);
}

std::int64_t area(const QRect& rect) {
    return std::int64_t{rect.width()} * rect.height();
}

/// The extra pixels painted if both rectangles are merged.
std::int64_t waste(const QRect& a, const QRect& b) {
    return area(a.united(b)) - area(a) - area(b);
}

}

void Damage::add(const QRect& rect) {
    if (rect.isEmpty())
        return;
    QRect all = rect;
    // A union can touch further rectangles that its parts did not.
    for (std::size_t i = 0; i < count_;) {
        if (!touch(rects_[i], all)) {
            ++i;
            continue;
        }
        all = all.united(rects_[i]);
        rects_[i] = rects_[--count_];
        i = 0;
    }
    if (count_ < most) {
        rects_[count_++] = all;
        return;
    }
    const auto nearest =
        std::ranges::min_element(rects_, {}, [&](const QRect& other) { return waste(other, all); });
    all = all.united(*nearest);
    *nearest = rects_[--count_];
    add(all);
}

}
