/// The pixels to repaint, as a small number of rectangles, so that distant changes are not merged
/// into one large area. Does not allocate, because it is filled for every frame.
#pragma once

#include <QRect>
#include <array>
#include <cstddef>
#include <span>

namespace vireline::xdg {

class Damage {
public:
    /// Merges rectangles that touch, and the closest ones if there are too many.
    void add(const QRect& rect);

    [[nodiscard]] bool isEmpty() const noexcept { return count_ == 0; }

    /// Disjoint and not empty.
    [[nodiscard]] std::span<const QRect> rects() const noexcept {
        return std::span{rects_}.first(count_);
    }

private:
    /// Enough for a label, the growing tiles, and two other places.
    static constexpr std::size_t most = 4;

    std::array<QRect, most> rects_;
    std::size_t count_ = 0;
};

}
