/// What a dock's window tells the window manager: a dock, above others, on every desktop, in no
/// taskbar, never focused.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <span>

namespace vireline::x11 {

class X11Connection;

namespace DockHints {

/// For a window that is not shown; again before each time it is, as a window manager may take them
/// away from a withdrawn one.
void apply(const X11Connection& connection, xcb_window_t window, std::uint32_t displayID);

/// Asks a window manager that found the window already shown.
void assertState(const X11Connection& connection, xcb_window_t window);

/// Where to blur what lies behind the window; an empty list is nowhere.
void setBlurRegion(const X11Connection& connection, xcb_window_t window,
                   std::span<const xcb_rectangle_t> region);

}
}
