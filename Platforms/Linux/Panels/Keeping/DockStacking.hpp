/// Where a dock's window that no window manager keeps belongs in the order of all windows: above
/// those it shares pixels with, but below full-screen ones.
#pragma once

#include "X11/PixelRect.hpp"

#include <xcb/xcb.h>

#include <optional>
#include <span>

namespace vireline::x11 {

struct StackedWindow {
    xcb_window_t id = XCB_NONE;
    PixelRect frame;
    bool isFullScreen = false;
};

/// Directly above or below the sibling.
struct Restacking {
    xcb_window_t sibling = XCB_NONE;
    bool isAbove = false;

    bool operator==(const Restacking&) const = default;
};

namespace DockStacking {

/// How to put `dock` where it belongs; nothing if it is there. The stack holds the shown windows
/// that a window manager could manage, the lowest first, and the dock. Menus, notifications and
/// lock screens are not in it, so that the dock never comes above one of them.
[[nodiscard]] std::optional<Restacking> restacking(std::span<const StackedWindow> stack,
                                                   xcb_window_t dock);

}
}
