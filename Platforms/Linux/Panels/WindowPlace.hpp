/// Keeps a window where it was put, against window managers and against Qt's own rounding.
#pragma once

#include "Panels/Keeping/CorrectionBudget.hpp"
#include "X11/PixelRect.hpp"

#include <xcb/xcb.h>

#include <QTimer>
#include <cstdint>
#include <functional>
#include <optional>

namespace vireline::x11 {

class X11Connection;

class WindowPlace {
public:
    /// `actual` or `isUnderWay` has changed without an event.
    std::function<void()> onChange;
    /// It was moved away as often as it was put back.
    std::function<void()> onGivenUp;

    /// For a window that has just been created, the dock of that display.
    WindowPlace(const X11Connection& connection, xcb_window_t window, std::uint32_t displayID);
    WindowPlace(const WindowPlace&) = delete;
    WindowPlace& operator=(const WindowPlace&) = delete;
    WindowPlace(WindowPlace&&) = delete;
    WindowPlace& operator=(WindowPlace&&) = delete;
    ~WindowPlace() = default;

    /// Puts it there, in pixels of the root window, and from now on back there.
    void set(const PixelRect& place);

    /// What the server was last asked for.
    [[nodiscard]] const std::optional<PixelRect>& asked() const noexcept { return asked_; }

    /// Where it is, as far as the server has told.
    [[nodiscard]] const std::optional<PixelRect>& actual() const noexcept {
        return actual_ ? actual_ : asked_;
    }

    /// Whether it may still be on its way there. A move that has not come about within a moment is
    /// not expected any more.
    [[nodiscard]] bool isUnderWay() const noexcept { return isUnderWay_; }

    /// Whether it is to be there, and may not have come yet.
    [[nodiscard]] bool isBoundFor(const PixelRect& place) const noexcept {
        return isUnderWay_ || asked_ != place;
    }

    /// Takes any event, and says whether it told of this window that the server, or another
    /// program, has put it somewhere. Gives in to a program that moves it away again and again.
    bool handle(const xcb_generic_event_t& event);

    /// Another window manager came: puts it back, whatever the one before insisted on.
    void startOver();

private:
    void look();
    void found(const std::optional<PixelRect>& place);
    void correct();
    void send(const PixelRect& place) const;
    [[nodiscard]] std::optional<PixelRect> now() const;

    const X11Connection& connection_;
    xcb_window_t window_;
    std::uint32_t displayID_;
    std::optional<PixelRect> asked_;
    /// Nothing before the server first told.
    std::optional<PixelRect> actual_;
    bool isUnderWay_ = false;
    bool hasGivenUp_ = false;
    CorrectionBudget corrections_;
    /// Runs while a correction may still be on its way.
    QTimer pause_;
    /// Until a move that was asked for should have come about.
    QTimer arrival_;
};

}
