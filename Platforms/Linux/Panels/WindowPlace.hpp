/// Keeps a window where it was put, against window managers and against Qt's own rounding.
#pragma once

#include "X11/PixelRect.hpp"

#include <xcb/xcb.h>

#include <QTimer>
#include <cstdint>
#include <optional>

namespace vireline::x11 {

class X11Connection;

class WindowPlace {
public:
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

    /// Takes any event, and says whether it told of this window that the server, or somebody else,
    /// has put it somewhere. Gives in to whoever moves it away again and again.
    bool handle(const xcb_generic_event_t& event);

    /// Another window manager came; what the one before insisted on is forgotten.
    void startOver() noexcept { correctionsLeft_ = maximumCorrections; }

private:
    static constexpr int maximumCorrections = 8;

    void configured(const xcb_configure_notify_event_t& event);
    void correct();
    void send(const PixelRect& place) const;
    [[nodiscard]] std::optional<PixelRect> now() const;

    const X11Connection& connection_;
    xcb_window_t window_;
    std::uint32_t displayID_;
    std::optional<PixelRect> asked_;
    /// Nothing before the server first told.
    std::optional<PixelRect> actual_;
    int correctionsLeft_ = maximumCorrections;
    /// Runs while a correction may still be on its way.
    QTimer pause_;
};

}
