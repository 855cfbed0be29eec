/// Sends windows to a requested place and makes sure that they get there: window managers answer
/// later and differently, and programs that have just started move their windows again. A window is
/// held only until it has stayed at its goal for a moment, so any later move is respected. Driven
/// by events, plus a timer per window that ends the hold.
#pragma once

#include "ClientWindows/WindowGoal.hpp"
#include "ClientWindows/WindowReader.hpp"
#include "Connection/SideConnection.hpp"
#include "Connection/X11Connection.hpp"
#include "Displays/DisplayGeometry.hpp"
#include "Foundation/Lifetime.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ScopedHandle.hpp"

#include <xcb/xproto.h>

#include <functional>
#include <map>
#include <set>
#include <span>

namespace vireline {
class RunLoop;
}

namespace vireline::x11 {

class WindowKeeper : private NonCopyable {
public:
    using Displays = std::function<std::span<const Display>()>;

    /// Requests are sent on `connection`, in order with all other requests of this program; their
    /// effects are observed on `side`.
    WindowKeeper(const X11Connection& connection, SideConnection& side, RunLoop& runLoop,
                 Displays displays);

    /// Makes the window visible and movable, and sends it to its goal. Until it has stayed there
    /// for a moment, moves away from it are corrected. A window that filled its display, and was
    /// not given a size, then fills the new one.
    void send(xcb_window_t window, const WindowSnapshot& now, const WindowGoal& goal);

private:
    struct Kept {
        WindowGoal goal;
        /// What the window should fill again on the new display.
        WindowFill fill;
        /// On the run loop's clock; the hold ends then in any case.
        double deadline = 0;
        bool isResting = false;
        int corrections = 0;
        Timer release;
    };

    void handle(const xcb_generic_event_t& event);
    void noteChange(xcb_window_t window);
    void checkChanged();
    /// Whether the window must still be held.
    [[nodiscard]] bool check(xcb_window_t window, Kept& kept);
    [[nodiscard]] bool isMisplaced(const Kept& kept, const WindowSnapshot& now) const;
    [[nodiscard]] bool hasReachedDisplay(const Kept& kept, const WindowSnapshot& now) const;
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
