/// The sizes that a window supports (WM_NORMAL_HINTS). Lengths are pixels of the client area,
/// without the window manager's decoration.
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
    /// Valid sizes are the base plus a whole number of increments.
    PixelSize base{0, 0};
    PixelSize increment{1, 1};

    /// Parsed from the property's 32-bit items. Missing or nonsensical values are treated as unset.
    [[nodiscard]] static SizeHints parse(std::span<const std::uint32_t> items);

    /// The largest valid size that does not exceed `wanted`, otherwise the smallest valid one.
    [[nodiscard]] PixelSize constrained(PixelSize wanted) const noexcept;

    bool operator==(const SizeHints&) const = default;
};

}
