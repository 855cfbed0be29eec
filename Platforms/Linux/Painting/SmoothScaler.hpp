/// Draws pictures at any size and any broken pixel, as icons that grow and move need it: between
/// four pixels of the picture for each one drawn, with soft edges. Qt draws the same, but sets
/// several threads to work on every icon, which takes longer than the drawing.
#pragma once

#include "Painting/PixelPair.hpp"
#include "Painting/Pixels.hpp"

#include <QRect>
#include <QRectF>
#include <cstdint>
#include <span>
#include <vector>

namespace vireline::x11 {

class SmoothScaler {
public:
    /// Lays `picture` over what is on the canvas, in `rect`, but only inside of `clip`, which lies
    /// on the canvas. `alpha` is of 255. Both images have premultiplied colours; the picture should
    /// be no more than about twice as large as `rect`.
    void draw(const Canvas& canvas, const Picture& picture, const QRectF& rect, int alpha,
              const QRect& clip);

private:
    /// Where one row or column of the canvas takes its pixels from.
    struct Tap {
        std::uint32_t first = 0;
        std::uint32_t second = 0;
        /// The second one's, of 256, for each channel.
        PixelPairs::Channels weights = 0;
        /// How much of it the picture covers, of 256.
        std::uint16_t coverage = 0;
    };

    static void findTaps(std::vector<Tap>& taps, int begin, int end, double start, double length,
                         int side);
    void mixRows(std::span<const std::uint32_t> first, std::span<const std::uint32_t> second,
                 PixelPairs::Channels weight);
    [[nodiscard]] PixelPair pairAt(std::size_t x) const;
    void drawRow(std::span<std::uint32_t> target, std::uint16_t cover) const;

    // Kept to spare allocations: they are filled for every icon of every frame.
    std::vector<Tap> columns_;
    std::vector<Tap> rows_;
    /// One row of the picture at its own width.
    std::vector<PixelPairs::Channels> line_;
};

}
