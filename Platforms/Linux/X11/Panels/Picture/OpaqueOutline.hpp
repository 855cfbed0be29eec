/// Without a compositor a window has no translucent pixels, so it gets an outline that follows its
/// content, inside which every pixel is made opaque.
#pragma once

#include <xcb/xcb.h>

#include <QImage>
#include <cstdint>
#include <vector>

namespace vireline::x11::OpaqueOutline {

/// The pixels that are opaque enough to belong to the window, as rectangles. Consecutive rows with
/// equal runs are merged.
[[nodiscard]] std::vector<xcb_rectangle_t> rectangles(const QImage& image);

/// Blends a premultiplied pixel over an opaque one.
[[nodiscard]] constexpr std::uint32_t over(std::uint32_t pixel, std::uint32_t base) noexcept {
    const std::uint32_t rest = 255U - (pixel >> 24U);
    std::uint32_t mixed = 0xff000000U;
    for (unsigned shift = 0; shift < 24; shift += 8) {
        const std::uint32_t below = (base >> shift & 0xffU) * rest / 255U;
        mixed |= ((pixel >> shift & 0xffU) + below) << shift;
    }
    return mixed;
}

}
