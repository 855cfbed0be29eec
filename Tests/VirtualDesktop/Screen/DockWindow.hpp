/// A dock that was found on the screen.
#pragma once

#include "VirtualDesktop/Screen/PixelGeometry.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <ostream>

namespace vireline::desktop {

struct DockWindow {
    std::uint32_t displayID = 0;
    PixelRect frame;
    xcb_window_t window = XCB_NONE;

    bool operator==(const DockWindow&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const DockWindow& dock) {
    return out << '#' << dock.displayID << ' ' << dock.frame;
}

}
