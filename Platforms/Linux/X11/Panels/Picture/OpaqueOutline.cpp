#include "Panels/Picture/OpaqueOutline.hpp"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace vireline::x11::OpaqueOutline {
namespace {

/// Alpha, 0 to 255; low enough for a handle drawn at 40 %.
constexpr std::uint32_t visibleAlpha = 64;

struct Run {
    int left = 0;
    int right = 0;

    bool operator==(const Run&) const = default;
};

std::vector<Run> runs(std::span<const std::uint32_t> row) {
    const auto isVisible = [](std::uint32_t pixel) { return pixel >> 24U >= visibleAlpha; };
    std::vector<Run> found;
    auto it = row.begin();
    while (true) {
        it = std::find_if(it, row.end(), isVisible);
        if (it == row.end())
            return found;
        const auto end = std::find_if_not(it, row.end(), isVisible);
        found.push_back({static_cast<int>(it - row.begin()), static_cast<int>(end - row.begin())});
        it = end;
    }
}

}

std::vector<xcb_rectangle_t> rectangles(const QImage& image) {
    std::vector<xcb_rectangle_t> all;
    std::vector<Run> open;
    int since = 0;
    const auto close = [&](int row) {
        for (const Run& run : open) {
            all.push_back({static_cast<std::int16_t>(run.left), static_cast<std::int16_t>(since),
                           static_cast<std::uint16_t>(run.right - run.left),
                           static_cast<std::uint16_t>(row - since)});
        }
    };
    for (int y = 0; y < image.height(); ++y) {
        const auto* const line = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
        auto next = runs({line, static_cast<std::size_t>(image.width())});
        if (next == open)
            continue;
        close(y);
        open = std::move(next);
        since = y;
    }
    close(image.height());
    return all;
}

}
