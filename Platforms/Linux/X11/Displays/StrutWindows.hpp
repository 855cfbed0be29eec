/// Other programs' windows that reserve space at a display's edge: reads them from the server and
/// watches for changes.
#pragma once

#include "Displays/Struts.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <xcb/xcb.h>

#include <functional>
#include <span>
#include <unordered_set>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class StrutWindows : private NonCopyable {
public:
    /// Called when `read` may return something new; possibly several times per change.
    std::function<void()> onChange;

    explicit StrutWindows(X11Connection& connection);

    /// Queries the server: all windows that the window manager lists and, as long as there is no
    /// dock or panel among them, also the root window's children and grandchildren, since such a
    /// window manager may not list panels. A few round trips regardless of the number of windows,
    /// plus one for each new window with a strut or of type dock; those are watched from then on.
    [[nodiscard]] std::vector<StrutWindow> read();

private:
    [[nodiscard]] std::vector<xcb_window_t> candidates();
    [[nodiscard]] bool listsDocks(std::span<const xcb_window_t> windows) const;
    void addUnlisted(std::vector<xcb_window_t>& windows) const;
    [[nodiscard]] bool isRelevantMapChange(xcb_window_t reporter, xcb_window_t window) const;
    void handle(const xcb_generic_event_t& event);
    [[nodiscard]] bool concerns(const xcb_generic_event_t& event) const;

    X11Connection& connection_;
    std::unordered_set<xcb_window_t> watched_;
    /// Active while there may be panels among the unlisted windows.
    Subscription topLevels_;
    Subscription events_;
};

}
