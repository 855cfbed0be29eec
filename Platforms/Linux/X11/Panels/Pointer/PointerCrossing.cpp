#include "Panels/Pointer/PointerCrossing.hpp"

#include "Connection/X11Connection.hpp"

#include <xcb/xinput.h>

#include <cstring>

namespace vireline::x11 {

std::optional<PointerCrossing> PointerCrossing::of(const xcb_generic_event_t& event,
                                                   const X11Connection& connection) {
    const int type = eventType(event);
    if (type == XCB_ENTER_NOTIFY || type == XCB_LEAVE_NOTIFY) {
        xcb_enter_notify_event_t crossing{};
        std::memcpy(&crossing, &event, sizeof crossing);
        return PointerCrossing{type == XCB_ENTER_NOTIFY, crossing.detail};
    }
    if (type != XCB_GE_GENERIC)
        return std::nullopt;
    // The fields before the windows have the layout that all events share.
    xcb_input_enter_event_t crossing{};
    std::memcpy(&crossing, &event, sizeof event);
    const bool isEntry = crossing.event_type == XCB_INPUT_ENTER;
    if (crossing.extension != connection.inputExtension() ||
        (!isEntry && crossing.event_type != XCB_INPUT_LEAVE))
        return std::nullopt;
    return PointerCrossing{isEntry, crossing.detail};
}

bool PointerCrossing::isOfChild() const noexcept {
    return isWithin() || detail == XCB_NOTIFY_DETAIL_VIRTUAL ||
           detail == XCB_NOTIFY_DETAIL_NONLINEAR_VIRTUAL;
}

}
