#include "Panels/WindowShape.hpp"

#include "X11/X11Connection.hpp"

#include <xcb/shape.h>

#include <algorithm>
#include <span>
#include <utility>

namespace vireline::x11 {
namespace {

void send(const X11Connection& connection, xcb_window_t window, xcb_shape_kind_t kind,
          std::span<const xcb_rectangle_t> rectangles) {
    xcb_shape_rectangles(connection.get(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_YX_BANDED,
                         window, 0, 0, static_cast<std::uint32_t>(rectangles.size()),
                         rectangles.data());
}

void clear(const X11Connection& connection, xcb_window_t window, xcb_shape_kind_t kind) {
    xcb_shape_mask(connection.get(), XCB_SHAPE_SO_SET, kind, window, 0, 0, XCB_PIXMAP_NONE);
}

bool areEqual(const xcb_rectangle_t& a, const xcb_rectangle_t& b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

}

void WindowShape::setBounding(std::optional<std::vector<xcb_rectangle_t>> rectangles) {
    if (rectangles.has_value() == bounding_.has_value() &&
        (!rectangles || std::ranges::equal(*rectangles, *bounding_, areEqual)))
        return;
    bounding_ = std::move(rectangles);
    if (bounding_) {
        send(connection_, window_, XCB_SHAPE_SK_BOUNDING, *bounding_);
    } else {
        clear(connection_, window_, XCB_SHAPE_SK_BOUNDING);
    }
}

void WindowShape::setInput(std::optional<PixelRect> region) {
    if (region == input_)
        return;
    input_ = region;
    if (!input_)
        return clear(connection_, window_, XCB_SHAPE_SK_INPUT);
    const xcb_rectangle_t rectangle{
        static_cast<std::int16_t>(input_->x), static_cast<std::int16_t>(input_->y),
        static_cast<std::uint16_t>(input_->width), static_cast<std::uint16_t>(input_->height)};
    send(connection_, window_, XCB_SHAPE_SK_INPUT, std::span{&rectangle, 1});
}

bool WindowShape::takesPointer(int x, int y) const {
    if (input_ && !input_->contains(x, y))
        return false;
    return !bounding_ || std::ranges::any_of(*bounding_, [=](const xcb_rectangle_t& r) {
        return x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
    });
}

}
