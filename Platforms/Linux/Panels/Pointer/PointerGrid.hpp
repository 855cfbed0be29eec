/// Areas of a window that the X server watches: it tells when the pointer comes into one, and of
/// nothing while it moves about there.
#pragma once

#include "X11/SideConnection.hpp"

#include <xcb/xcb.h>

#include <QPoint>
#include <QRect>
#include <functional>
#include <memory>
#include <vector>

namespace vireline::x11 {

class PointerGrid {
public:
    /// Of a window, in its pixels; empty areas count for nothing. In force when this returns,
    /// unless the server is out of reach. `onEntry` hears where in the window the pointer came into
    /// an area, in a turn of the event loop, and must not end the grid.
    PointerGrid(xcb_window_t window, std::vector<QRect> areas, std::function<void(QPoint)> onEntry);
    PointerGrid(const PointerGrid&) = delete;
    PointerGrid& operator=(const PointerGrid&) = delete;
    PointerGrid(PointerGrid&&) = delete;
    PointerGrid& operator=(PointerGrid&&) = delete;
    ~PointerGrid() = default;

    [[nodiscard]] const std::vector<QRect>& areas() const noexcept { return areas_; }
    /// Whether the pointer's leaving this place will be told.
    [[nodiscard]] bool watches(QPoint pixel) const;

private:
    void cover(xcb_window_t window, const QRect& area);
    void handle(const xcb_generic_event_t& event) const;

    std::vector<QRect> areas_;
    std::function<void(QPoint)> onEntry_;
    /// One for each area: children of the window that can be neither seen nor clicked.
    std::vector<xcb_window_t> cells_;
    /// Its own, as answers to what is done in every frame would wake it up; its end takes the cells
    /// with it.
    std::unique_ptr<SideConnection> server_;
};

}
