/// Keeps a window that no window manager keeps above the windows it shares pixels with, and below
/// full-screen ones. Gives way to a program that insists on the contrary.
#pragma once

#include "Foundation/ScopedHandle.hpp"
#include "Panels/Keeping/CorrectionBudget.hpp"
#include "Panels/Keeping/DockStacking.hpp"

#include <xcb/xcb.h>

#include <QTimer>
#include <span>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class StackKeeper {
public:
    /// Looks once, and from then on whenever windows come, go, move or change their order. `screen`
    /// is the display of the window. Without a manager a window that covers all of it is taken for
    /// a full-screen one.
    StackKeeper(const X11Connection& connection, xcb_window_t window, const PixelRect& screen);
    StackKeeper(const StackKeeper&) = delete;
    StackKeeper& operator=(const StackKeeper&) = delete;
    StackKeeper(StackKeeper&&) = delete;
    StackKeeper& operator=(StackKeeper&&) = delete;
    ~StackKeeper() = default;

    /// Takes any event.
    void handle(const xcb_generic_event_t& event);

private:
    [[nodiscard]] bool concerns(const xcb_generic_event_t& event) const;
    void lookSoon();
    void look();
    [[nodiscard]] std::vector<StackedWindow> stack() const;
    void findFullScreen(std::vector<StackedWindow>& windows) const;

    const X11Connection& connection_;
    xcb_window_t window_;
    PixelRect screen_;
    CorrectionBudget budget_;
    Subscription topLevels_;
    /// Runs after each look; what came in between leads to another one at its end.
    QTimer pause_;
    bool isLookDue_ = false;
};

}
