#include "VirtualDesktop/Screen/Colour.hpp"

#include <array>

namespace vireline::desktop {

Colour distinctColour(int index) noexcept {
    constexpr std::array<std::uint8_t, 4> levels{230, 20, 90, 160};
    const auto level = [&](int digit) { return levels[static_cast<std::size_t>(digit) % 4]; };
    // Three digits in base 4, skipping the greys.
    const int code = index + 1 + index / 20;
    return {level(code), level(code / 4), level(code / 16)};
}

}
