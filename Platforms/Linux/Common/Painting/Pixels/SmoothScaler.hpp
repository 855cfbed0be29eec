/// Draws images at any size and fractional position, for icons that grow and move, with bilinear
/// interpolation and antialiased edges. Qt could do the same, but starts several threads for every
/// icon, which takes longer than the drawing.
#pragma once

#include "Painting/Pixels/PixelPair.hpp"
#include "Painting/Pixels/Pixels.hpp"

#include <QRect>
#include <QRectF>
#include <cstdint>
#include <span>
#include <vector>

namespace vireline::xdg {

class SmoothScaler {
public:
    /// Blends `picture`, scaled to `rect`, over the canvas inside `clip`, which must lie on the
    /// canvas. `alpha` is 0 to 255. Both images have premultiplied colours; the picture should be
    /// at most about twice as large as `rect`.
    void draw(const Canvas& canvas, const Picture& picture, const QRectF& rect, int alpha,
              const QRect& clip);

private:
    /// The source pixels for one row or column of the canvas.
    struct Tap {
        std::uint32_t first = 0;
        std::uint32_t second = 0;
        /// Weight of the second one, 0 to 256, for each channel.
        PixelPairs::Channels weights = 0;
        /// How much of the canvas pixel the picture covers, 0 to 256.
        std::uint16_t coverage = 0;
    };

    static void findTaps(std::vector<Tap>& taps, int begin, int end, double start, double length,
                         int side);
    void mixRows(std::span<const std::uint32_t> first, std::span<const std::uint32_t> second,
                 PixelPairs::Channels weight);
    [[nodiscard]] PixelPair pairAt(std::size_t x) const;
    void drawRow(std::span<std::uint32_t> target, std::uint16_t cover) const;

    // Kept to avoid allocations, because they are filled for every icon of every frame.
    std::vector<Tap> columns_;
    std::vector<Tap> rows_;
    /// One interpolated row, at the picture's own width.
    std::vector<PixelPairs::Channels> line_;
};

}
