/// The stacking position of a dock's window that no window manager manages: above the windows that
/// it overlaps, but below full-screen ones.
#pragma once

#include "Connection/PixelRect.hpp"

#include <xcb/xcb.h>

#include <optional>
#include <span>

namespace vireline::x11 {

struct StackedWindow {
    xcb_window_t id = XCB_NONE;
    PixelRect frame;
    bool isFullScreen = false;
};

/// Directly above or below this sibling.
struct Restacking {
    xcb_window_t sibling = XCB_NONE;
    bool isAbove = false;

    bool operator==(const Restacking&) const = default;
};

namespace DockStacking {

/// How to restack `dock`; nullopt if it is in the right position. `stack` contains the mapped
/// windows that a window manager could manage and the dock itself, bottom first. It excludes menus,
/// notifications and lock screens, so that the dock is never raised above one of them.
[[nodiscard]] std::optional<Restacking> restacking(std::span<const StackedWindow> stack,
                                                   xcb_window_t dock);

}
}
