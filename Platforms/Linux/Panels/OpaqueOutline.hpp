/// Without a compositor a window has no translucent pixels: it gets an outline that follows what is
/// painted, and inside it every pixel is made opaque.
#pragma once

#include <xcb/xcb.h>

#include <QImage>
#include <cstdint>
#include <vector>

namespace vireline::x11::OpaqueOutline {

/// The rows' runs of pixels that are visible enough to belong to the window, as rectangles of as
/// many equal rows as possible.
[[nodiscard]] std::vector<xcb_rectangle_t> rectangles(const QImage& image);

/// A premultiplied pixel over an opaque one.
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
