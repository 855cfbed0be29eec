/// Opaque colours, in the format of the virtual screen's pixels.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ostream>

namespace vireline::desktop {

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    [[nodiscard]] constexpr std::uint32_t pixel() const noexcept {
        return (static_cast<std::uint32_t>(red) << 16U) |
               (static_cast<std::uint32_t>(green) << 8U) | blue;
    }

    /// The largest difference of any channel.
    [[nodiscard]] int distance(Colour other) const noexcept {
        const auto apart = [](std::uint8_t a, std::uint8_t b) { return std::abs(a - b); };
        return std::max(
            {apart(red, other.red), apart(green, other.green), apart(blue, other.blue)});
    }

    bool operator==(const Colour&) const = default;
};

/// Whether the colours look the same; smooth scaling may change the lowest bits.
[[nodiscard]] inline bool isSame(Colour a, Colour b) noexcept {
    constexpr int tolerance = 12;
    return a.distance(b) <= tolerance;
}

inline std::ostream& operator<<(std::ostream& out, Colour colour) {
    return out << "rgb(" << int{colour.red} << ' ' << int{colour.green} << ' ' << int{colour.blue}
               << ')';
}

/// Sixty colours, by index, that are easily distinguished from each other and from greys.
[[nodiscard]] Colour distinctColour(int index) noexcept;

}
