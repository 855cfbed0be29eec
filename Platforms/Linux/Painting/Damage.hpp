/// The pixels that have to be painted again: a few rectangles, so that what is far apart is not
/// painted as one. Makes no allocation, as it is filled for every frame.
#pragma once

#include <QRect>
#include <array>
#include <cstddef>
#include <span>

namespace vireline::x11 {

class Damage {
public:
    /// Rectangles that touch become one; so do the nearest when there are too many.
    void add(const QRect& rect);

    [[nodiscard]] bool isEmpty() const noexcept { return count_ == 0; }

    /// None overlaps another, none is empty.
    [[nodiscard]] std::span<const QRect> rects() const noexcept {
        return std::span{rects_}.first(count_);
    }

private:
    /// A label, the tiles that grow, and two elsewhere.
    static constexpr std::size_t most = 4;

    std::array<QRect, most> rects_;
    std::size_t count_ = 0;
};

}
