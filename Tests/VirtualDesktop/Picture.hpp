/// A part of the screen as a viewer sees it, and PNG files.
#pragma once

#include "VirtualDesktop/Colour.hpp"
#include "VirtualDesktop/PixelGeometry.hpp"
#include "VirtualDesktop/XClient.hpp"

#include <filesystem>
#include <vector>

namespace vireline::desktop {

class Picture {
public:
    /// A plane of one colour.
    Picture(int width, int height, Colour colour);

    /// What the screen shows in `area`, which must lie on it. Throws when it does not.
    [[nodiscard]] static Picture ofScreen(const XClient& client, const PixelRect& area);
    [[nodiscard]] static Picture ofScreen(const XClient& client);

    [[nodiscard]] int width() const noexcept { return width_; }
    [[nodiscard]] int height() const noexcept { return height_; }
    [[nodiscard]] Colour at(int x, int y) const;
    void set(int x, int y, Colour colour);

    /// How many pixels have this colour, about.
    [[nodiscard]] int count(Colour colour) const;

    /// The smallest rectangle that holds all pixels of this colour; empty if there is none.
    [[nodiscard]] PixelRect bounds(Colour colour) const;

    /// False when the file cannot be written.
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
