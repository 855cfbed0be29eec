#include "VirtualDesktop/Screen/Wallpaper.hpp"

#include "VirtualDesktop/Screen/Colour.hpp"

#include <array>
#include <cmath>
#include <cstdint>

namespace vireline::desktop {
namespace {

constexpr Colour evening{38, 52, 98};
constexpr Colour dusk{196, 108, 120};

std::uint8_t between(std::uint8_t from, std::uint8_t to, double part) {
    return static_cast<std::uint8_t>(std::lround(from + (to - from) * part));
}

/// The pixel at a position in the monitor; `x` and `y` range from 0 to 1.
std::uint32_t shade(double x, double y) {
    const double part = (x + 2 * y) / 3;
    return Colour{between(evening.red, dusk.red, part), between(evening.green, dusk.green, part),
                  between(evening.blue, dusk.blue, part)}
        .pixel();
}

void paint(const XClient& client, xcb_pixmap_t pixmap, xcb_gcontext_t context,
           const PixelRect& area) {
    std::vector<std::uint32_t> row(static_cast<std::size_t>(area.width));
    for (int y = 0; y < area.height; ++y) {
        for (int x = 0; x < area.width; ++x)
            row[static_cast<std::size_t>(x)] =
                shade(static_cast<double>(x) / area.width, static_cast<double>(y) / area.height);
        xcb_put_image(client.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context,
                      static_cast<std::uint16_t>(area.width), 1, static_cast<std::int16_t>(area.x),
                      static_cast<std::int16_t>(area.y + y), 0, client.screen().root_depth,
                      static_cast<std::uint32_t>(row.size() * sizeof row.front()),
                      reinterpret_cast<const std::uint8_t*>(row.data()));
    }
}

}

void paintWallpaper(const XClient& client, const std::vector<Monitor>& monitors) {
    const auto& screen = client.screen();
    const xcb_pixmap_t pixmap = xcb_generate_id(client.get());
    xcb_create_pixmap(client.get(), screen.root_depth, pixmap, client.root(),
                      screen.width_in_pixels, screen.height_in_pixels);
    const xcb_gcontext_t context = xcb_generate_id(client.get());
    xcb_create_gc(client.get(), context, pixmap, 0, nullptr);
    const xcb_rectangle_t everything{0, 0, screen.width_in_pixels, screen.height_in_pixels};
    xcb_poly_fill_rectangle(client.get(), pixmap, context, 1, &everything);
    for (const auto& monitor : monitors)
        paint(client, pixmap, context, monitor.frame);
    xcb_free_gc(client.get(), context);

    xcb_change_window_attributes(client.get(), client.root(), XCB_CW_BACK_PIXMAP, &pixmap);
    // Compositors paint the root window from the pixmap in this property.
    client.setItems(client.root(), "_XROOTPMAP_ID", XCB_ATOM_PIXMAP, {pixmap});
    client.setItems(client.root(), "ESETROOT_PMAP_ID", XCB_ATOM_PIXMAP, {pixmap});
    xcb_clear_area(client.get(), 0, client.root(), 0, 0, 0, 0);
    client.sync();
}

}
