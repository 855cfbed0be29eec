#include "Panels/WindowShape.hpp"

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

}

void WindowShape::setBounding(std::vector<xcb_rectangle_t> rectangles) {
    if (bounding_ && areEqual(rectangles, *bounding_))
        return;
    bounding_ = std::move(rectangles);
    sendBounding();
}

void WindowShape::setInput(const PixelRect& region) {
    if (region == input_)
        return;
    input_ = region;
    sendInput();
}

void WindowShape::setBlurred(std::vector<xcb_rectangle_t> region) {
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

void WindowShape::coverUpcomingMove(PixelPoint offset) {
    if (offset == coveredOffset_)
        return;
    coveredOffset_ = offset;
    if (bounding_)
        sendBounding();
    if (input_)
        sendInput();
}

void WindowShape::sendBounding() const {
    if (bounding_)
        send(XCB_SHAPE_SK_BOUNDING, *bounding_);
}

void WindowShape::sendInput() const {
    if (!input_)
        return;
    const xcb_rectangle_t rectangle{
        static_cast<std::int16_t>(input_->x), static_cast<std::int16_t>(input_->y),
        static_cast<std::uint16_t>(input_->width), static_cast<std::uint16_t>(input_->height)};
    send(XCB_SHAPE_SK_INPUT, std::span{&rectangle, 1});
}

void WindowShape::send(xcb_shape_kind_t kind, std::span<const xcb_rectangle_t> rectangles) const {
    const auto sendAt = [&](xcb_shape_op_t operation, PixelPoint offset) {
        xcb_shape_rectangles(connection_.get(), operation, kind, XCB_CLIP_ORDERING_YX_BANDED,
                             window_, static_cast<std::int16_t>(offset.x),
                             static_cast<std::int16_t>(offset.y),
                             static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    };
    sendAt(XCB_SHAPE_SO_SET, {});
    if (coveredOffset_ != PixelPoint{})
        sendAt(XCB_SHAPE_SO_UNION, coveredOffset_);
}

bool WindowShape::takesPointer(int x, int y) const {
    if (input_ && !input_->contains(x, y))
        return false;
    return !bounding_ || std::ranges::any_of(*bounding_, [=](const xcb_rectangle_t& r) {
        return x >= r.x && x < r.x + r.width && y >= r.y && y < r.y + r.height;
    });
}

}
