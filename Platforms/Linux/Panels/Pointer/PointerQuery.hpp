/// Asks the X server where the pointer is, for when its events do not say.
#pragma once

#include <xcb/xcb.h>

#include <optional>

namespace vireline::x11 {

class X11Connection;

/// The pointer in relation to one window.
struct PointerPlace {
    /// Pixels from the window's corner.
    int x = 0;
    int y = 0;
    /// No window of another client lies between, as far as that can be told.
    bool isUncovered = false;
    bool isPrimaryHeld = false;
    bool isAnyHeld = false;
};

namespace PointerQuery {

/// Nothing when the window is gone or the pointer on another screen.
[[nodiscard]] std::optional<PointerPlace> place(const X11Connection& connection,
                                                xcb_window_t window);

}
}
