/// Areas of a window that the X server watches: it reports when the pointer enters one, and nothing
/// while the pointer moves within it.
#pragma once

#include "Connection/SideConnection.hpp"
#include "Foundation/NonCopyable.hpp"

#include <xcb/xcb.h>

#include <QPoint>
#include <QRect>
#include <functional>
#include <memory>
#include <vector>

namespace vireline::x11 {

class PointerGrid : private NonCopyable {
public:
    /// `areas` are in the window's pixels; empty ones are ignored. Active when the constructor
    /// returns, unless the server does not respond. `onEntry` is called from the event loop with
    /// the position in the window where the pointer entered an area, and must not destroy the grid.
    PointerGrid(xcb_window_t window, std::vector<QRect> areas, std::function<void(QPoint)> onEntry);

    [[nodiscard]] const std::vector<QRect>& areas() const noexcept { return areas_; }
    /// Whether the pointer's leaving this position will be reported.
    [[nodiscard]] bool watches(QPoint pixel) const;

private:
    void cover(xcb_window_t window, const QRect& area);
    void handle(const xcb_generic_event_t& event) const;

    std::vector<QRect> areas_;
    std::function<void(QPoint)> onEntry_;
    /// One invisible, unclickable child window per area.
    std::vector<xcb_window_t> cells_;
    /// A separate connection, so that replies to each frame's requests do not wake it up. Closing
    /// it destroys the child windows.
    std::unique_ptr<SideConnection> server_;
};

}
