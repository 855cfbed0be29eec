/// Keeps an unmanaged window above the windows that it overlaps, and below full-screen ones. Gives
/// up against a program that keeps restacking.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "Panels/Keeping/CorrectionBudget.hpp"
#include "Panels/Keeping/DockStacking.hpp"

#include <xcb/xcb.h>

#include <QTimer>
#include <span>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class StackKeeper : private NonCopyable {
public:
    /// Checks once now, and then whenever windows are created, destroyed, moved or restacked.
    /// `screen` is the window's display. Without a manager, a window that covers all of it counts
    /// as full-screen.
    StackKeeper(const X11Connection& connection, xcb_window_t window, const PixelRect& screen);

    /// Must be called for every event.
    void handle(const xcb_generic_event_t& event);

private:
    [[nodiscard]] bool concerns(const xcb_generic_event_t& event) const;
    void lookSoon();
    void look();
    void findFrames();
    [[nodiscard]] bool counts(xcb_window_t window,
                              const xcb_get_window_attributes_reply_t& attributes) const;
    [[nodiscard]] std::vector<StackedWindow> stack() const;
    void findFullScreen(std::vector<StackedWindow>& windows) const;

    const X11Connection& connection_;
    xcb_window_t window_;
    PixelRect screen_;
    CorrectionBudget budget_;
    Subscription topLevels_;
    /// The windows that contain a window manager's clients, as of the latest check.
    std::vector<xcb_window_t> frames_;
    /// Runs after each check; changes in the meantime cause another check when it ends.
    QTimer pause_;
    bool isLookDue_ = false;
};

}
