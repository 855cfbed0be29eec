/// The window manager hints of a dock's window: a dock and therefore above ordinary windows, on
/// every desktop, not in taskbars, never focused.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace vireline::x11 {

class X11Connection;

namespace DockHints {

/// Must be called before each time the window is shown, because a window manager may remove hints
/// from a withdrawn window.
void apply(const X11Connection& connection, xcb_window_t window, std::uint32_t displayID);

/// Lets the program alone choose position and size, to the pixel. Must be applied after Qt shows
/// the window: on high-density screens Qt's own hints allow only whole points.
void applySizeHints(const X11Connection& connection, xcb_window_t window);

/// Requests the state from a window manager that started after the window was shown.
void assertState(const X11Connection& connection, xcb_window_t window);

}
}
