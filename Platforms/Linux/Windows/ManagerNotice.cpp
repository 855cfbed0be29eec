#include "Windows/ManagerNotice.hpp"

#include "App/DevLog.hpp"
#include "Platform/RunLoop.hpp"
#include "Windows/WindowReader.hpp"
#include "X11/X11Connection.hpp"

#include <cstdint>

namespace vireline::x11 {
namespace {

/// A window manager says that it is there before it says what it supports.
constexpr double managerSettlingSeconds = 1;

/// How long it may take to ask; seconds.
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
    constexpr std::uint8_t sentFlag = 0x80;
    if ((event.response_type & ~sentFlag) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == connection_.root() && change.state == XCB_PROPERTY_NEW_VALUE &&
        change.atom == connection_.atom("_NET_SUPPORTING_WM_CHECK"))
        lookSoon();
}

void ManagerNotice::lookSoon() {
    look_ = runLoop_.after(managerSettlingSeconds, lifetime_.guard([this] { look(); }));
}

void ManagerNotice::look() {
    if (reader_.managerAbility(SideConnection::in(lookSeconds)) == ManagerAbility::movesNone)
        DevLog::write("window manager cannot move windows");
}

}
