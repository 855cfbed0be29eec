/// Positions on the X screen, in pixels from its top-left corner, y downwards.
#pragma once

#include <compare>
#include <ostream>

namespace vireline::desktop {

struct PixelPoint {
    int x = 0;
    int y = 0;

    bool operator==(const PixelPoint&) const = default;
};

struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] constexpr int right() const noexcept { return x + width; }
    [[nodiscard]] constexpr int bottom() const noexcept { return y + height; }
    [[nodiscard]] constexpr PixelPoint center() const noexcept {
        return {x + width / 2, y + height / 2};
    }
    [[nodiscard]] constexpr bool contains(const PixelRect& other) const noexcept {
        return other.x >= x && other.y >= y && other.right() <= right() &&
               other.bottom() <= bottom();
    }
    [[nodiscard]] constexpr bool contains(PixelPoint p) const noexcept {
        return p.x >= x && p.y >= y && p.x < right() && p.y < bottom();
    }

    bool operator==(const PixelRect&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const PixelPoint& point) {
    return out << '(' << point.x << ", " << point.y << ')';
}

inline std::ostream& operator<<(std::ostream& out, const PixelRect& rect) {
    return out << rect.width << 'x' << rect.height << '+' << rect.x << '+' << rect.y;
}

}
