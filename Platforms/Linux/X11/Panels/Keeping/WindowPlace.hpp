/// Keeps a window at its position, despite window managers and Qt's rounding.
#pragma once

#include "Connection/PixelRect.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Panels/Keeping/CorrectionBudget.hpp"

#include <xcb/xcb.h>

#include <QTimer>
#include <cstdint>
#include <functional>
#include <optional>

namespace vireline::x11 {

class X11Connection;

class WindowPlace : private NonCopyable {
public:
    /// `actual` or `isUnderWay` has changed without an event.
    std::function<void()> onChange;
    /// It was moved away again until the corrections were used up.
    std::function<void()> onGivenUp;

    /// For the newly created window of that display's dock.
    WindowPlace(const X11Connection& connection, xcb_window_t window, std::uint32_t displayID);

    /// Moves it there, in pixels of the root window, and from now on moves it back there.
    void set(const PixelRect& place);

    /// The position last requested from the server.
    [[nodiscard]] const std::optional<PixelRect>& asked() const noexcept { return asked_; }

    /// The current position, as far as the server has reported it.
    [[nodiscard]] const std::optional<PixelRect>& actual() const noexcept {
        return actual_ ? actual_ : asked_;
    }

    /// Whether it may still be moving there. A move that has not happened after a short time is no
    /// longer expected.
    [[nodiscard]] bool isUnderWay() const noexcept { return isUnderWay_; }

    /// Whether `place` was requested and has not been reached yet.
    [[nodiscard]] bool isBoundFor(const PixelRect& place) const noexcept {
        return isUnderWay_ || asked_ != place;
    }

    /// Must be called for every event; returns whether it reports that this window was moved by the
    /// server or another program. Gives up against a program that moves it away again and again.
    bool handle(const xcb_generic_event_t& event);

    /// Call after a change of window managers: moves it back, even if the program had given up.
    void startOver();

private:
    void look();
    void found(const std::optional<PixelRect>& place);
    void correct();
    /// Whether to wait for another pause instead of correcting again.
    [[nodiscard]] bool mayStillAnswer();
    void move(const PixelRect& place);
    [[nodiscard]] std::optional<PixelRect> now() const;

    const X11Connection& connection_;
    xcb_window_t window_;
    std::uint32_t displayID_;
    std::optional<PixelRect> asked_;
    /// nullopt until the server first reports it.
    std::optional<PixelRect> actual_;
    bool isUnderWay_ = false;
    bool hasGivenUp_ = false;
    CorrectionBudget corrections_;
    /// Whether anything has been reported since the last correction.
    bool isAnswered_ = true;
    int silentPauses_ = 0;
    /// Runs while a correction may still be under way.
    QTimer pause_;
    /// Runs until a requested move should have happened.
    QTimer arrival_;
};

}
