/// The windows of other programs that reserve room at a display's edge, read from the server and
/// watched for changes.
#pragma once

#include "Displays/Struts.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <xcb/xcb.h>

#include <functional>
#include <span>
#include <unordered_set>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class StrutWindows {
public:
    /// Called when `read` may have something new to say; several times for one change.
    std::function<void()> onChange;

    explicit StrutWindows(X11Connection& connection);
    StrutWindows(const StrutWindows&) = delete;
    StrutWindows& operator=(const StrutWindows&) = delete;
    StrutWindows(StrutWindows&&) = delete;
    StrutWindows& operator=(StrutWindows&&) = delete;
    ~StrutWindows() = default;

    /// Asks the server: all windows that the window manager lists, and as long as no dock or panel
    /// is among those, the root's children and theirs, since such a window manager may not list
    /// panels at all. A few round trips, however many windows there are, and one for each that is
    /// new among those with a strut or of type dock, which are watched from then on.
    [[nodiscard]] std::vector<StrutWindow> read();

private:
    [[nodiscard]] std::vector<xcb_window_t> candidates();
    [[nodiscard]] bool listsDocks(std::span<const xcb_window_t> windows) const;
    void addUnlisted(std::vector<xcb_window_t>& windows) const;
    [[nodiscard]] bool comesOrGoes(xcb_window_t reporter, xcb_window_t window) const;
    void handle(const xcb_generic_event_t& event);
    [[nodiscard]] bool concerns(const xcb_generic_event_t& event) const;

    X11Connection& connection_;
    std::unordered_set<xcb_window_t> watched_;
    /// While panels may be among the windows that are not listed.
    Subscription topLevels_;
    Subscription events_;
};

}
