#include "Panels/Keeping/WindowPlace.hpp"

#include "Connection/X11Connection.hpp"
#include "Foundation/DevLog.hpp"
#include "Panels/Keeping/DockHints.hpp"

#include <array>
#include <chrono>
#include <string>

namespace vireline::x11 {
namespace {

/// Wait between corrections, so that events from before a correction do not trigger further ones.
constexpr std::chrono::milliseconds placingPause{100};

/// How many pauses a correction may go unanswered before it counts as refused. A busy window
/// manager answers late; some never answer when they refuse.
constexpr int patientPauses = 3;

/// How long a move may take; longer than any window manager that carries it out needs.
constexpr std::chrono::milliseconds arrivalTime{500};

}

WindowPlace::WindowPlace(const X11Connection& connection, xcb_window_t window,
                         std::uint32_t displayID)
    : connection_(connection), window_(window), displayID_(displayID) {
    pause_.setSingleShot(true);
    pause_.setInterval(placingPause);
    pause_.callOnTimeout([this] { look(); });
    arrival_.setSingleShot(true);
    arrival_.setInterval(arrivalTime);
    arrival_.callOnTimeout([this] { look(); });
}

void WindowPlace::set(const PixelRect& place) {
    asked_ = place;
    hasGivenUp_ = false;
    corrections_.refill();
    move(place);
}

void WindowPlace::startOver() {
    if (asked_)
        set(*asked_);
}

/// The event's position may be relative to the window manager's frame or be out of date, so the
/// actual position is queried.
bool WindowPlace::handle(const xcb_generic_event_t& event) {
    switch (eventType(event)) {
    case XCB_CONFIGURE_NOTIFY: {
        const auto& change = as<xcb_configure_notify_event_t>(event);
        if (change.window != window_)
            return false;
        const PixelRect told{change.x, change.y, change.width, change.height};
        isAnswered_ = true;
        found(told == asked_ ? told : now());
        return true;
    }
    case XCB_REPARENT_NOTIFY:
        if (as<xcb_reparent_notify_event_t>(event).window != window_)
            return false;
        isAnswered_ = true;
        found(now());
        return true;
    default:
        return false;
    }
}

void WindowPlace::found(const std::optional<PixelRect>& place) {
    actual_ = place;
    if (actual_ == asked_) {
        isUnderWay_ = false;
        arrival_.stop();
    }
    if (!pause_.isActive())
        correct();
}

/// Some window managers send no event when they refuse a move.
void WindowPlace::look() {
    const auto before = actual_;
    const bool wasUnderWay = isUnderWay_;
    if (!arrival_.isActive())
        isUnderWay_ = false;
    found(now());
    if (onChange && (actual_ != before || isUnderWay_ != wasUnderWay))
        onChange();
}

void WindowPlace::correct() {
    if (!asked_ || !actual_ || *actual_ == *asked_ || hasGivenUp_)
        return;
    if (mayStillAnswer()) {
        pause_.start();
        return;
    }
    if (!corrections_.take(CorrectionBudget::Time::clock::now())) {
        hasGivenUp_ = true;
        DevLog::write("dock does not stay in place #" + std::to_string(displayID_));
        if (onGivenUp)
            onGivenUp();
        return;
    }
    // Qt may have set its own hints in the meantime, with increments that do not fit the size.
    DockHints::applySizeHints(connection_, window_);
    move(*asked_);
    isAnswered_ = false;
    silentPauses_ = 0;
    pause_.start();
}

bool WindowPlace::mayStillAnswer() {
    return !isAnswered_ && ++silentPauses_ < patientPauses;
}

void WindowPlace::move(const PixelRect& place) {
    isUnderWay_ = actual_ != place;
    if (isUnderWay_)
        arrival_.start();
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
