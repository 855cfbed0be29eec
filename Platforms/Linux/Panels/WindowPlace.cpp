#include "Panels/WindowPlace.hpp"

#include "App/DevLog.hpp"
#include "Panels/DockHints.hpp"
#include "X11/X11Connection.hpp"

#include <array>
#include <chrono>
#include <string>

namespace vireline::x11 {
namespace {

/// Time for a correction to come about, before the next one. What was on its way before it would
/// otherwise be answered with as many more.
constexpr std::chrono::milliseconds pauseLength{100};

}

WindowPlace::WindowPlace(const X11Connection& connection, xcb_window_t window,
                         std::uint32_t displayID)
    : connection_(connection), window_(window), displayID_(displayID) {
    pause_.setSingleShot(true);
    pause_.setInterval(pauseLength);
    pause_.callOnTimeout([this] {
        actual_ = now();
        correct();
    });
}

void WindowPlace::set(const PixelRect& place) {
    asked_ = place;
    startOver();
    send(place);
}

bool WindowPlace::handle(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    if ((event.response_type & ~sentFlag) != XCB_CONFIGURE_NOTIFY)
        return false;
    const auto& configuration = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
    if (configuration.window != window_)
        return false;
    configured(configuration);
    return true;
}

/// The event may speak of a place inside the window manager's frame, or be out of date: what counts
/// is where the window is.
void WindowPlace::configured(const xcb_configure_notify_event_t& event) {
    const PixelRect told{event.x, event.y, event.width, event.height};
    actual_ = told == asked_ ? told : now();
    if (!pause_.isActive())
        correct();
}

void WindowPlace::correct() {
    if (!asked_ || !actual_ || *actual_ == *asked_ || correctionsLeft_ == 0)
        return;
    // Qt may have announced its own since, with steps that the size does not fit between.
    DockHints::applySizeHints(connection_, window_);
    send(*asked_);
    pause_.start();
    if (--correctionsLeft_ == 0)
        DevLog::write("dock does not stay in place #" + std::to_string(displayID_));
}

void WindowPlace::send(const PixelRect& place) const {
    const std::array<std::uint32_t, 4> values{
        static_cast<std::uint32_t>(place.x), static_cast<std::uint32_t>(place.y),
        static_cast<std::uint32_t>(place.width), static_cast<std::uint32_t>(place.height)};
    xcb_configure_window(connection_.get(), window_,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    connection_.flush();
}

std::optional<PixelRect> WindowPlace::now() const {
    xcb_connection_t* const x = connection_.get();
    const auto cornerCookie = xcb_translate_coordinates(x, window_, connection_.root(), 0, 0);
    const auto sizeCookie = xcb_get_geometry(x, window_);
    const Owned<xcb_translate_coordinates_reply_t> corner{
        xcb_translate_coordinates_reply(x, cornerCookie, nullptr)};
    const Owned<xcb_get_geometry_reply_t> size{xcb_get_geometry_reply(x, sizeCookie, nullptr)};
    if (!corner || !size)
        return std::nullopt;
    return PixelRect{corner->dst_x, corner->dst_y, size->width, size->height};
}

}
