#include "Displays/DisplayGeometry.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::x11::DisplayGeometry {
namespace {

/// Halves go to the greater edge wherever the display lies, so that moving a display by whole
/// pixels moves what is on it by just as many. The X protocol has 16 bits for a coordinate.
int nearest(double edge) {
    constexpr double reach = 32767;
    return static_cast<int>(std::clamp(std::floor(edge + 0.5), -reach, reach));
}

}

Display display(const PixelRect& monitor, const PixelRect& primary, double scale) {
    return {.pixels = monitor,
            .origin = {static_cast<double>(monitor.x - primary.x),
                       static_cast<double>(primary.bottom() - monitor.bottom())},
            .scale = std::isfinite(scale) && scale > 0 ? scale : 1};
}

Rect frame(const Display& display) {
    return toPoints(display, display.pixels);
}

Rect toPoints(const Display& display, const PixelRect& pixels) {
    const PixelRect& bounds = display.pixels;
    return {display.origin.x + (pixels.x - bounds.x) / display.scale,
            display.origin.y + (bounds.bottom() - pixels.bottom()) / display.scale,
            pixels.width / display.scale, pixels.height / display.scale};
}

PixelRect toPixels(const Display& display, const Rect& global) {
    const auto column = [&](double x) {
        return display.pixels.x + nearest((x - display.origin.x) * display.scale);
    };
    const auto row = [&](double y) {
        return display.pixels.bottom() + nearest((display.origin.y - y) * display.scale);
    };
    const int left = column(global.minX());
    const int top = row(global.maxY());
    return {left, top, std::max(1, column(global.maxX()) - left),
            std::max(1, row(global.minY()) - top)};
}

PixelRect viewPixels(const Display& display, const Rect& window, const Rect& view) {
    const PixelRect outer = toPixels(display, window);
    PixelRect inner =
        toPixels(display, {window.x + view.x, window.y + view.y, view.width, view.height});
    inner.x -= outer.x;
    inner.y -= outer.y;
    return inner;
}

}
