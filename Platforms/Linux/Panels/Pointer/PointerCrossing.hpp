/// An event about the pointer's crossing of a window's edge.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>

namespace vireline::x11 {

class X11Connection;

struct PointerCrossing {
    bool isEntry = false;
    /// As the protocol has it: XCB_NOTIFY_DETAIL_ANCESTOR and so on.
    std::uint8_t detail = 0;

    /// The pointer came from a child of the window, or went to one.
    [[nodiscard]] bool isOfChild() const noexcept;
    /// … and to the window itself, or from there.
    [[nodiscard]] bool isWithin() const noexcept { return detail == XCB_NOTIFY_DETAIL_INFERIOR; }

    /// Nothing for other events. The server may tell of a crossing as the core protocol does, or
    /// as one of input devices.
    [[nodiscard]] static std::optional<PointerCrossing> of(const xcb_generic_event_t& event,
                                                           const X11Connection& connection);
};

}
