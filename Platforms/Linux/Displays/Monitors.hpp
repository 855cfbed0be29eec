/// The monitors that the X server has, as RandR 1.5 lists them.
#pragma once

#include "X11/PixelRect.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <vector>

namespace vireline::x11 {

class X11Connection;

struct Monitor {
    /// The atom of the monitor's name.
    xcb_atom_t name = XCB_ATOM_NONE;
    /// Its place in the server's list.
    std::uint32_t index = 0;
    PixelRect pixels;
    bool isPrimary = false;

    bool operator==(const Monitor&) const = default;
};

namespace Monitors {

/// Whether the server lists monitors; without RandR 1.5 it does not. One round trip.
[[nodiscard]] bool areListed(const X11Connection& connection);

/// In the server's order, without those that show nothing. One round trip.
[[nodiscard]] std::vector<Monitor> list(const X11Connection& connection);

/// What Qt takes for screens, where the server lists no monitors; the whole root window if Qt has
/// only one.
[[nodiscard]] std::vector<Monitor> ofQtScreens(const X11Connection& connection);

[[nodiscard]] PixelRect root(const X11Connection& connection);

/// The primary monitor leads, else the first; the others keep their order, and of those that show
/// the same pixels only the first stays, as one is then a mirror of the other.
[[nodiscard]] std::vector<Monitor> inOrder(std::vector<Monitor> monitors);

}
}
