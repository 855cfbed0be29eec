/// What sizes a window says that it can have (WM_NORMAL_HINTS). Lengths are pixels of the client
/// area, without what the window manager puts around it.
#pragma once

#include <cstdint>
#include <span>

namespace vireline::x11 {

struct PixelSize {
    int width = 0;
    int height = 0;

    bool operator==(const PixelSize&) const = default;
};

struct SizeHints {
    PixelSize minimum{1, 1};
    PixelSize maximum{32767, 32767};
    /// Sizes are whole numbers of increments above the base.
    PixelSize base{0, 0};
    PixelSize increment{1, 1};

    /// From the property's 32-bit items. What is missing or makes no sense counts as not said.
    [[nodiscard]] static SizeHints parse(std::span<const std::uint32_t> words);

    /// The greatest size within the hints that is not greater than `wanted`, else the least one.
    [[nodiscard]] PixelSize constrained(PixelSize wanted) const noexcept;

    bool operator==(const SizeHints&) const = default;
};

}
