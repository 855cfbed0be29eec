/// An event that reports that the pointer crossed a window's edge.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>

namespace vireline::x11 {

class X11Connection;

struct PointerCrossing {
    bool isEntry = false;
    /// The protocol's detail, such as XCB_NOTIFY_DETAIL_ANCESTOR.
    std::uint8_t detail = 0;

    /// The crossing is between a child of the window and something else.
    [[nodiscard]] bool isOfChild() const noexcept;
    /// The crossing is between a child and the window itself.
    [[nodiscard]] bool isWithin() const noexcept { return detail == XCB_NOTIFY_DETAIL_INFERIOR; }

    /// nullopt for other events. The server may report a crossing as a core event or as an XInput
    /// event.
    [[nodiscard]] static std::optional<PointerCrossing> of(const xcb_generic_event_t& event,
                                                           const X11Connection& connection);
};

}
