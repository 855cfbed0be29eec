/// Whether a window manager lets ordinary windows cover a dock's window that it manages.
#pragma once

#include "Connection/PixelRect.hpp"

#include <xcb/xcb.h>

namespace vireline::x11 {

class X11Connection;

namespace DockCover {

/// Whether a window that belongs below `dock` is visible above it. Windows that may be above a dock
/// do not count: full-screen ones, those that the user keeps above others, dialogs, menus,
/// notifications and lock screens. `frame` is the dock's, `display` that of its display; a window
/// without borders that fills the display counts as full-screen.
[[nodiscard]] bool isCovered(const X11Connection& connection, xcb_window_t dock,
                             const PixelRect& frame, const PixelRect& display);

}
}
