#include "Panels/Picture/WindowShape.hpp"

#include "Connection/X11Connection.hpp"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>

namespace vireline::x11 {
namespace {

constexpr std::string_view blurProperty = "_KDE_NET_WM_BLUR_BEHIND_REGION";

auto fields(const xcb_rectangle_t& rect) {
    return std::tuple{rect.x, rect.y, rect.width, rect.height};
}

bool areEqual(std::span<const xcb_rectangle_t> first, std::span<const xcb_rectangle_t> second) {
    return std::ranges::equal(first, second, {}, fields, fields);
}

xcb_rectangle_t xcbRectangle(const PixelRect& rect) {
    return {static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(rect.y),
            static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(rect.height)};
}

xcb_rectangle_t movedBy(PixelPoint offset, xcb_rectangle_t rectangle) {
    rectangle.x = static_cast<std::int16_t>(rectangle.x + offset.x);
    rectangle.y = static_cast<std::int16_t>(rectangle.y + offset.y);
    return rectangle;
}

}

void WindowShape::setBlurred(Rectangles region) {
    if (areEqual(region, blurred_))
        return;
    blurred_ = std::move(region);
    if (blurred_.empty()) {
        xcb_delete_property(connection_.get(), window_, connection_.atom(blurProperty));
        return;
    }
    std::vector<std::uint32_t> items;
    for (const xcb_rectangle_t& rect : blurred_) {
        items.insert(items.end(),
                     {static_cast<std::uint32_t>(rect.x), static_cast<std::uint32_t>(rect.y),
                      std::uint32_t{rect.width}, std::uint32_t{rect.height}});
    }
    connection_.setItems(window_, blurProperty, XCB_ATOM_CARDINAL, items);
}

void WindowShape::apply() {
    if (bounding_)
        change(XCB_SHAPE_SK_BOUNDING, covering(*bounding_), sentBounding_);
    if (input_)
        change(XCB_SHAPE_SK_INPUT, covering({xcbRectangle(*input_)}), sentInput_);
}

void WindowShape::resendInput() const {
    if (sentInput_)
        send(XCB_SHAPE_SK_INPUT, *sentInput_);
}

WindowShape::Rectangles WindowShape::covering(Rectangles rectangles) const {
    if (upcomingOffset_ == PixelPoint{})
        return rectangles;
    for (std::size_t i = 0, count = rectangles.size(); i < count; ++i)
        rectangles.push_back(movedBy(upcomingOffset_, rectangles[i]));
    return rectangles;
}

void WindowShape::change(xcb_shape_kind_t kind, Rectangles rectangles,
                         std::optional<Rectangles>& sent) const {
    if (sent && areEqual(rectangles, *sent))
        return;
    send(kind, rectangles);
    sent = std::move(rectangles);
}

void WindowShape::send(xcb_shape_kind_t kind, const Rectangles& rectangles) const {
    xcb_shape_rectangles(connection_.get(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED,
                         window_, 0, 0, static_cast<std::uint32_t>(rectangles.size()),
                         rectangles.data());
}

bool WindowShape::takesPointer(int x, int y) const {
    if (input_ && !input_->contains(x, y))
        return false;
    return !bounding_ || std::ranges::any_of(*bounding_, [=](const xcb_rectangle_t& r) {
        return x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
    });
}

}
