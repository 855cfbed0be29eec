/// Queries the pointer's position from the X server, for when there are no events.
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
    /// Whether no other client's window covers it, as far as can be determined.
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
