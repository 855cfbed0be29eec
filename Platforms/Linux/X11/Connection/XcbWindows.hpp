/// Converts between a window's identity and its number on the X server.
#pragma once

#include "Applications/ClientWindows/WindowID.hpp"

#include <xcb/xproto.h>

namespace vireline::x11 {

[[nodiscard]] constexpr xdg::WindowID windowID(xcb_window_t window) noexcept {
    return xdg::WindowID{window};
}

[[nodiscard]] constexpr xcb_window_t xcbWindow(xdg::WindowID window) noexcept {
    return static_cast<xcb_window_t>(window);
}

}
