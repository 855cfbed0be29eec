/// A screenshot of a part of the screen, and PNG files.
#pragma once

#include "VirtualDesktop/Screen/Colour.hpp"
#include "VirtualDesktop/Screen/PixelGeometry.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <filesystem>
#include <vector>

namespace vireline::desktop {

class Picture {
public:
    /// A picture filled with one colour.
    Picture(int width, int height, Colour colour);

    /// What the screen shows in `area`. Throws if that is not on the screen.
    [[nodiscard]] static Picture ofScreen(const XClient& client, const PixelRect& area);
    [[nodiscard]] static Picture ofScreen(const XClient& client);
    /// In the window's own coordinates, and as the program has painted it if it is composited.
    [[nodiscard]] static Picture ofWindow(const XClient& client, xcb_window_t window,
                                          const PixelRect& area);

    [[nodiscard]] int width() const noexcept { return width_; }
    [[nodiscard]] int height() const noexcept { return height_; }
    [[nodiscard]] Colour at(int x, int y) const;
    void set(int x, int y, Colour colour);

    /// The number of pixels of approximately this colour.
    [[nodiscard]] int count(Colour colour) const;

    /// The bounding rectangle of all pixels of this colour; empty if there are none.
    [[nodiscard]] PixelRect bounds(Colour colour) const;

    /// The bounding rectangles of the large areas of this colour, from top to bottom. Parts with
    /// the same left and right edge are one area.
    [[nodiscard]] std::vector<PixelRect> areas(Colour colour) const;

    /// Returns false if the file cannot be written.
    bool writePNG(const std::filesystem::path& file) const;

    bool operator==(const Picture&) const = default;

private:
    [[nodiscard]] std::size_t index(int x, int y) const noexcept {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }

    int width_;
    int height_;
    std::vector<Colour> pixels_;
};

}
