#include "Panels/Pointer/PointerGrid.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace vireline::x11 {
namespace {

/// In seconds.
constexpr double coverTimeout = 0.1;

}

PointerGrid::PointerGrid(xcb_window_t window, std::vector<QRect> areas,
                         std::function<void(QPoint)> onEntry)
    : areas_(std::move(areas)), onEntry_(std::move(onEntry)) {
    auto server = SideConnection::open();
    if (!server)
        return;
    server_ = *std::move(server);
    server_->onEvent = [this](const xcb_generic_event_t& event) { handle(event); };
    cells_.reserve(areas_.size());
    for (const QRect& area : areas_)
        cover(window, area);
    server_->sync(SideConnection::in(coverTimeout));
}

void PointerGrid::cover(xcb_window_t window, const QRect& area) {
    xcb_connection_t* const x = server_->get();
    const xcb_window_t cell = cells_.emplace_back(xcb_generate_id(x));
    if (area.isEmpty())
        return;
    constexpr std::uint32_t entries = XCB_EVENT_MASK_ENTER_WINDOW;
    xcb_create_window(x, 0, cell, window, static_cast<std::int16_t>(area.x()),
                      static_cast<std::int16_t>(area.y()), static_cast<std::uint16_t>(area.width()),
                      static_cast<std::uint16_t>(area.height()), 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &entries);
    xcb_map_window(x, cell);
}

bool PointerGrid::watches(QPoint pixel) const {
    return server_ &&
           std::ranges::any_of(areas_, [=](const QRect& area) { return area.contains(pixel); });
}

void PointerGrid::handle(const xcb_generic_event_t& event) const {
    if (eventType(event) != XCB_ENTER_NOTIFY)
        return;
    xcb_enter_notify_event_t crossing{};
    std::memcpy(&crossing, &event, sizeof crossing);
    const auto cell = std::ranges::find(cells_, crossing.event);
    if (cell == cells_.end())
        return;
    const QRect& area = areas_[static_cast<std::size_t>(cell - cells_.begin())];
    onEntry_(area.topLeft() + QPoint{crossing.event_x, crossing.event_y});
}

}
