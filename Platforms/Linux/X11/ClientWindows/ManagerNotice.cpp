#include "ClientWindows/ManagerNotice.hpp"

#include "Connection/X11Connection.hpp"
#include "Foundation/DevLog.hpp"
#include "Platform/RunLoop.hpp"

#include <cstdint>

namespace vireline::x11 {
namespace {

/// A window manager announces itself before it lists what it supports.
constexpr double managerSettlingSeconds = 1;

/// Timeout for the query; seconds.
constexpr double lookSeconds = 0.5;

}

ManagerNotice::ManagerNotice(X11Connection& connection, const WindowReader& reader,
                             RunLoop& runLoop)
    : connection_(connection)
    , reader_(reader)
    , runLoop_(runLoop)
    , events_(connection.observe(
          lifetime_.guard([this](const xcb_generic_event_t& event) { handle(event); }))) {
    connection_.selectInput(connection_.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    lookSoon();
}

void ManagerNotice::handle(const xcb_generic_event_t& event) {
    const auto kind = eventType(event);
    if (kind == XCB_DESTROY_NOTIFY) {
        const auto& destroyed = as<xcb_destroy_notify_event_t>(event);
        if (last_ && destroyed.window == last_->window)
            lookSoon();
    } else if (kind == XCB_PROPERTY_NOTIFY &&
               concernsManager(as<xcb_property_notify_event_t>(event))) {
        // The new manager's window may have the same ID as its predecessor's.
        last_.reset();
        lookSoon();
    }
}

bool ManagerNotice::concernsManager(const xcb_property_notify_event_t& change) const {
    return change.window == connection_.root() &&
           (change.atom == connection_.atom("_NET_SUPPORTING_WM_CHECK") ||
            change.atom == connection_.atom("_NET_SUPPORTED"));
}

void ManagerNotice::lookSoon() {
    look_ = runLoop_.after(managerSettlingSeconds, lifetime_.guard([this] { look(); }));
}

void ManagerNotice::look() {
    const auto deadline = SideConnection::in(lookSeconds);
    const Sighting now{reader_.managerWindow(deadline), reader_.managerAbility(deadline)};
    if (now == last_)
        return;
    last_ = now;
    // A window manager that is killed leaves its properties behind, but its window is destroyed.
    if (now.window)
        connection_.selectInput(*now.window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    if (now.ability == ManagerAbility::movesNone)
        DevLog::write("window manager cannot move windows");
    changes_.notify();
}

}
