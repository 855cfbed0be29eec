/// Rectangles of whole pixels in X11 coordinates: origin at the top-left corner of the root window,
/// or of a given window, y downwards.
#pragma once

#include <algorithm>
#include <cstdint>
#include <ostream>

namespace vireline::x11 {

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
    [[nodiscard]] constexpr bool isEmpty() const noexcept { return width <= 0 || height <= 0; }

    /// Number of pixels in both rectangles.
    [[nodiscard]] constexpr std::int64_t overlap(const PixelRect& other) const noexcept {
        const std::int64_t across =
            std::int64_t{std::min(right(), other.right())} - std::max(x, other.x);
        const std::int64_t down =
            std::int64_t{std::min(bottom(), other.bottom())} - std::max(y, other.y);
        return across <= 0 || down <= 0 ? 0 : across * down;
    }

    [[nodiscard]] constexpr bool contains(int pixelX, int pixelY) const noexcept {
        return pixelX >= x && pixelX < right() && pixelY >= y && pixelY < bottom();
    }

    bool operator==(const PixelRect&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const PixelPoint& p) {
    return out << '+' << p.x << '+' << p.y;
}

inline std::ostream& operator<<(std::ostream& out, const PixelRect& r) {
    return out << r.width << 'x' << r.height << (r.x < 0 ? "" : "+") << r.x << (r.y < 0 ? "" : "+")
               << r.y;
}

}
