/// Sends windows where they were asked to be, and sees to it that they get there: window managers
/// answer later and each in its way, and programs that have just started move their windows once
/// more. A window is held only until it has rested at its goal for a moment, so that whatever moves
/// it later wins. Works by events, and a timer per window that ends the hold.
#pragma once

#include "ClientWindows/WindowGoal.hpp"
#include "ClientWindows/WindowReader.hpp"
#include "Displays/DisplayGeometry.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/ScopedHandle.hpp"
#include "X11/SideConnection.hpp"
#include "X11/X11Connection.hpp"

#include <xcb/xproto.h>

#include <functional>
#include <map>
#include <set>
#include <span>

namespace vireline {
class RunLoop;
}

namespace vireline::x11 {

class WindowKeeper {
public:
    using Displays = std::function<std::span<const Display>()>;

    /// Requests go out on `connection`, in order with all others of this program; `side` hears what
    /// becomes of them.
    WindowKeeper(const X11Connection& connection, SideConnection& side, RunLoop& runLoop,
                 Displays displays);
    WindowKeeper(const WindowKeeper&) = delete;
    WindowKeeper& operator=(const WindowKeeper&) = delete;
    WindowKeeper(WindowKeeper&&) = delete;
    WindowKeeper& operator=(WindowKeeper&&) = delete;
    ~WindowKeeper() = default;

    /// Makes the window one that can be seen and moved, and sends it to its goal. Until it has
    /// rested there it is corrected when it goes elsewhere by itself. A window that filled its
    /// display, and was not given a size, fills the one that it has come to.
    void send(xcb_window_t window, const WindowSnapshot& now, const WindowGoal& goal);

private:
    struct Kept {
        WindowGoal goal;
        /// What the window shall fill again on the display that is meant.
        WindowFill fill;
        /// On the run loop's clock; whatever happens, the window is let go then.
        double deadline = 0;
        bool isResting = false;
        int corrections = 0;
        Timer release;
    };

    void handle(const xcb_generic_event_t& event);
    void noteChange(xcb_window_t window);
    void checkChanged();
    /// Whether the window is still to be held.
    [[nodiscard]] bool check(xcb_window_t window, Kept& kept);
    [[nodiscard]] bool isAstray(const Kept& kept, const WindowSnapshot& now) const;
    [[nodiscard]] bool hasComeToDisplay(const Kept& kept, const WindowSnapshot& now) const;
    void makeMovable(xcb_window_t window, const WindowSnapshot& now) const;
    void setFill(xcb_window_t window, const WindowFill& fill, bool isOn) const;
    void request(xcb_window_t window, const WindowSnapshot& now, const WindowGoal& goal) const;
    void checkLater(xcb_window_t window);
    void releaseAfter(xcb_window_t window, Kept& kept, double seconds);
    void release(xcb_window_t window);
    void listen(xcb_window_t window) const;
    void ignore(xcb_window_t window) const;

    const X11Connection& connection_;
    SideConnection& side_;
    RunLoop& runLoop_;
    WindowReader reader_;
    Displays displays_;
    std::map<xcb_window_t, Kept> kept_;
    std::set<xcb_window_t> changed_;
    Timer nextCheck_;
    Lifetime lifetime_;
};

}
