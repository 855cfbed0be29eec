/// The X server's monitors, as RandR 1.5 lists them.
#pragma once

#include "Connection/PixelRect.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

namespace vireline::x11 {

class X11Connection;

struct Monitor {
    /// The atom of the monitor's name.
    xcb_atom_t name = XCB_ATOM_NONE;
    /// Its index in the server's list.
    std::uint32_t index = 0;
    PixelRect pixels;
    bool isPrimary = false;

    bool operator==(const Monitor&) const = default;
};

namespace Monitors {

/// Whether the server can list monitors, which takes RandR 1.5. One round trip.
[[nodiscard]] bool areListed(const X11Connection& connection);

/// In the server's order, without monitors that show nothing. One round trip.
[[nodiscard]] std::vector<Monitor> list(const X11Connection& connection);

/// Qt's screens, for servers that cannot list monitors; the whole root window if Qt has only one
/// screen.
[[nodiscard]] std::vector<Monitor> ofQtScreens(const X11Connection& connection);

[[nodiscard]] PixelRect root(const X11Connection& connection);

/// The primary monitor first, if there is one; the others keep their order. Of monitors that show
/// the same pixels, which mirror each other, only the first is kept.
[[nodiscard]] std::vector<Monitor> inOrder(std::vector<Monitor> monitors);

}
}
