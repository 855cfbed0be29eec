/// What a dock's window tells the window manager: a dock, and so above ordinary windows, on every
/// desktop, in no taskbar, never focused.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace vireline::x11 {

class X11Connection;

namespace DockHints {

/// For a window that is not shown; again before each time it is, as a window manager may take them
/// away from a withdrawn one.
void apply(const X11Connection& connection, xcb_window_t window, std::uint32_t displayID);

/// That the program alone chooses place and size, to the pixel. Qt says otherwise each time it
/// shows the window: on dense screens it allows whole points only.
void applySizeHints(const X11Connection& connection, xcb_window_t window);

/// Asks a window manager that found the window already shown.
void assertState(const X11Connection& connection, xcb_window_t window);

}
}
