/// Points, sizes and rectangles. The function that returns a value documents its space: global (y
/// up), event (y down) or a view's own (y down).
#pragma once

#include <algorithm>
#include <ostream>

namespace vireline {

struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;

    bool operator==(const Size&) const = default;
};

/// A rectangle, given by the corner with the smallest coordinates. Width and height are never
/// negative.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] constexpr double minX() const noexcept { return x; }
    [[nodiscard]] constexpr double minY() const noexcept { return y; }
    [[nodiscard]] constexpr double midX() const noexcept { return x + width / 2; }
    [[nodiscard]] constexpr double midY() const noexcept { return y + height / 2; }
    [[nodiscard]] constexpr double maxX() const noexcept { return x + width; }
    [[nodiscard]] constexpr double maxY() const noexcept { return y + height; }
    [[nodiscard]] constexpr Point origin() const noexcept { return {x, y}; }
    [[nodiscard]] constexpr Size size() const noexcept { return {width, height}; }
    [[nodiscard]] constexpr Point center() const noexcept { return {midX(), midY()}; }

    /// Half-open: includes the edges at minX and minY, excludes those at maxX and maxY.
    [[nodiscard]] constexpr bool contains(Point p) const noexcept {
        return p.x >= minX() && p.x < maxX() && p.y >= minY() && p.y < maxY();
    }

    /// The smallest rectangle that contains both.
    [[nodiscard]] constexpr Rect united(const Rect& other) const noexcept {
        const double left = std::min(minX(), other.minX());
        const double low = std::min(minY(), other.minY());
        return {left, low, std::max(maxX(), other.maxX()) - left,
                std::max(maxY(), other.maxY()) - low};
    }

    bool operator==(const Rect&) const = default;
};

/// (x, y, width, height)
inline std::ostream& operator<<(std::ostream& out, const Rect& r) {
    return out << '(' << r.x << ", " << r.y << ", " << r.width << ", " << r.height << ')';
}

inline std::ostream& operator<<(std::ostream& out, const Point& p) {
    return out << '(' << p.x << ", " << p.y << ')';
}

}
