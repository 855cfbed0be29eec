#include "VirtualDesktop/Screen/Picture.hpp"

#include <png.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace vireline::desktop {
namespace {

static_assert(sizeof(Colour) == 3, "a row of colours is a row of a PNG file's RGB");

Colour fromPixel(std::uint32_t pixel) {
    return {static_cast<std::uint8_t>((pixel >> 16U) & 0xffU),
            static_cast<std::uint8_t>((pixel >> 8U) & 0xffU),
            static_cast<std::uint8_t>(pixel & 0xffU)};
}

}

Picture::Picture(int width, int height, Colour colour)
    : width_(width)
    , height_(height)
    , pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour) {}

Picture Picture::ofScreen(const XClient& client, const PixelRect& area) {
    return ofWindow(client, client.root(), area);
}

Picture Picture::ofWindow(const XClient& client, xcb_window_t window, const PixelRect& area) {
    const auto cookie = xcb_get_image(
        client.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<std::int16_t>(area.x),
        static_cast<std::int16_t>(area.y), static_cast<std::uint16_t>(area.width),
        static_cast<std::uint16_t>(area.height), ~0U);
    const Owned<xcb_get_image_reply_t> reply{xcb_get_image_reply(client.get(), cookie, nullptr)};
    if (!reply)
        throw std::runtime_error{"the X server gives no picture of that area"};
    Picture picture{area.width, area.height, {}};
    std::vector<std::uint32_t> pixels(picture.pixels_.size());
    const auto bytes = static_cast<std::size_t>(xcb_get_image_data_length(reply.get()));
    std::memcpy(pixels.data(), xcb_get_image_data(reply.get()),
                std::min(bytes, pixels.size() * sizeof(std::uint32_t)));
    std::ranges::transform(pixels, picture.pixels_.begin(), fromPixel);
    return picture;
}

Picture Picture::ofScreen(const XClient& client) {
    // The screen may have grown since the client connected.
    return ofScreen(client, client.frame(client.root()).value_or(PixelRect{}));
}

Colour Picture::at(int x, int y) const {
    return pixels_.at(index(x, y));
}

void Picture::set(int x, int y, Colour colour) {
    pixels_.at(index(x, y)) = colour;
}

int Picture::count(Colour colour) const {
    return static_cast<int>(
        std::ranges::count_if(pixels_, [&](Colour pixel) { return isSame(pixel, colour); }));
}

PixelRect Picture::bounds(Colour colour) const {
    int left = width_;
    int top = height_;
    int right = 0;
    int bottom = 0;
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            if (!isSame(at(x, y), colour))
                continue;
            left = std::min(left, x);
            right = std::max(right, x + 1);
            top = std::min(top, y);
            bottom = std::max(bottom, y + 1);
        }
    }
    if (right == 0)
        return {};
    return {left, top, right - left, bottom - top};
}

std::vector<PixelRect> Picture::areas(Colour colour) const {
    constexpr int smallest = 24;
    constexpr int frameWidth = 4;
    std::vector<PixelRect> areas;
    std::vector<bool> isSeen(pixels_.size());
    std::vector<PixelPoint> open;
    const auto visit = [&](int x, int y) {
        if (x < 0 || y < 0 || x >= width_ || y >= height_ || isSeen[index(x, y)] ||
            pixels_[index(x, y)] != colour)
            return;
        isSeen[index(x, y)] = true;
        open.push_back({x, y});
    };
    const auto add = [&](const PixelRect& area) {
        if (area.width < smallest)
            return;
        const auto same = std::ranges::find_if(areas, [&](const PixelRect& other) {
            return std::abs(other.x - area.x) <= frameWidth &&
                   std::abs(other.right() - area.right()) <= frameWidth;
        });
        if (same == areas.end())
            areas.push_back(area);
        else
            same->height = area.bottom() - same->y;
    };
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            visit(x, y);
            PixelRect area{x, y, 0, 0};
            while (!open.empty()) {
                const PixelPoint next = open.back();
                open.pop_back();
                const int left = std::min(area.x, next.x);
                area.width = std::max(area.right(), next.x + 1) - left;
                area.x = left;
                area.height = std::max(area.height, next.y + 1 - area.y);
                visit(next.x - 1, next.y);
                visit(next.x + 1, next.y);
                visit(next.x, next.y - 1);
                visit(next.x, next.y + 1);
            }
            add(area);
        }
    }
    return areas;
}

bool Picture::writePNG(const std::filesystem::path& file) const {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width_);
    image.height = static_cast<png_uint_32>(height_);
    image.format = PNG_FORMAT_RGB;
    image.flags = PNG_IMAGE_FLAG_FAST;
    return png_image_write_to_file(&image, file.c_str(), 0, pixels_.data(), 0, nullptr) != 0;
}

}
