/// Queries the pointer's position from the X server, for when events do not tell.
#pragma once

#include <xcb/xcb.h>

#include <optional>

namespace vireline::x11 {

class X11Connection;

/// The pointer relative to one window.
struct PointerPlace {
    /// Pixels from the window's corner.
    int x = 0;
    int y = 0;
    /// As far as can be told, no other client's window covers it.
    bool isUncovered = false;
    bool isPrimaryHeld = false;
    bool isAnyHeld = false;
};

namespace PointerQuery {

/// nullopt if the window is gone or the pointer is on another screen.
[[nodiscard]] std::optional<PointerPlace> place(const X11Connection& connection,
                                                xcb_window_t window);

}
}
