#include "Displays/DisplayGeometry.hpp"

#include "Painting/Pixels/NearestPixel.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::x11::DisplayGeometry {
namespace {

using xdg::nearestPixel;

double squaredDistance(Point point, const Rect& rect) {
    const double across = std::max({rect.minX() - point.x, 0.0, point.x - rect.maxX()});
    const double down = std::max({rect.minY() - point.y, 0.0, point.y - rect.maxY()});
    return across * across + down * down;
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
        return display.pixels.x + nearestPixel((x - display.origin.x) * display.scale);
    };
    const auto row = [&](double y) {
        return display.pixels.bottom() + nearestPixel((display.origin.y - y) * display.scale);
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

Rect flipped(const Rect& rect, std::span<const Display> displays) {
    return {rect.x, frame(displays.front()).height - rect.maxY(), rect.width, rect.height};
}

const Display& nearest(std::span<const Display> displays, int x, int y) {
    return *std::ranges::min_element(displays, {}, [x, y](const Display& display) {
        const PixelRect& bounds = display.pixels;
        return squaredDistance({x + 0.5, y + 0.5},
                               {static_cast<double>(bounds.x), static_cast<double>(bounds.y),
                                static_cast<double>(bounds.width),
                                static_cast<double>(bounds.height)});
    });
}

const Display& nearest(std::span<const Display> displays, Point event) {
    const auto holder = std::ranges::find_if(displays, [&](const Display& display) {
        return flipped(frame(display), displays).contains(event);
    });
    if (holder != displays.end())
        return *holder;
    return *std::ranges::min_element(displays, {}, [&](const Display& display) {
        return squaredDistance(event, flipped(frame(display), displays));
    });
}

Point eventPoint(std::span<const Display> displays, int x, int y) {
    const Rect event = flipped(toPoints(nearest(displays, x, y), {x, y, 1, 1}), displays);
    return {event.x, event.y};
}

PixelPoint pixelAt(std::span<const Display> displays, Point event) {
    // `eventPoint` may have lost some precision.
    constexpr double tolerance = 1e-6;
    const Display& display = nearest(displays, event);
    const Rect bounds = flipped(frame(display), displays);
    const auto offset = [&](double distance) {
        return static_cast<int>(std::floor(distance * display.scale + tolerance));
    };
    return {display.pixels.x + offset(event.x - bounds.x),
            display.pixels.y + offset(event.y - bounds.y)};
}

Rect toEventSpace(std::span<const Display> displays, const PixelRect& pixels) {
    const PixelPoint center = pixels.center();
    return flipped(toPoints(nearest(displays, center.x, center.y), pixels), displays);
}

PixelRect toPixels(std::span<const Display> displays, const Rect& event) {
    return toPixels(nearest(displays, event.center()), flipped(event, displays));
}

}
