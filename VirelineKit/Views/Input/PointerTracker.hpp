/// Interprets the window system's pointer events for a dock's window: a menu or another program's
/// grab looks like the pointer leaving, and while a button is held down, events keep coming
/// wherever the pointer goes.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Platform/PanelWindow.hpp"

#include <optional>

namespace vireline {

class PointerTracker {
public:
    /// The actual state of the pointer, which may differ from the last event.
    struct PointerState {
        bool isOverWindow = false;
        bool isPrimaryHeld = false;
        /// In the view's coordinates.
        Point position;
    };

    explicit PointerTracker(PanelWindowListener& listener) : listener_(listener) {}

    /// Sets the area in which the hosted view draws, in its own coordinates. Positions outside it
    /// are in the window but not on the view.
    void setViewArea(const Rect& area) { viewArea_ = area; }

    /// Ignored if a button is held, since the user is doing something else then, such as moving a
    /// window. If the button is released over this window, `entered` is called again.
    void entered(Point position, bool isButtonHeld = false);
    void moved(Point position);
    void pressed(Point position);
    void secondaryPressed(Point position);
    void middlePressed(Point position);
    void released(Point position, bool isOverWindow, std::optional<double> time = std::nullopt);
    void left(const PointerState& now);

    /// The press was cancelled.
    void cancelled();

    /// To be called regularly during a press, or while the pointer is grabbed, since a release that
    /// goes to another program causes no event. A press ends at the second call in a row that finds
    /// the button up: at the first, its release may still be on its way.
    void polled(const PointerState& now);

    /// From here until `menuClosed`, pointer events belong to the menu and are ignored.
    void menuOpened();
    void menuClosed(const PointerState& now);

    /// The window was hidden.
    void hidden();

    /// Whether the primary button was pressed here and is still down. The pointer may be anywhere.
    [[nodiscard]] bool isPressed() const noexcept { return isPressed_; }

    [[nodiscard]] bool hasMenu() const noexcept { return hasMenu_; }

    /// Whether another program has grabbed the pointer while it was over this window. There will be
    /// no event when it leaves.
    [[nodiscard]] bool isPointerGrabbed() const noexcept { return isPointerGrabbed_; }

private:
    void send(PointerEvent::Kind kind, Point position = {});
    void enter();
    void hover(Point position);
    void leave();
    [[nodiscard]] bool isOnView(Point position) const;

    PanelWindowListener& listener_;
    Rect viewArea_;
    bool isInside_ = false;
    bool isOnView_ = false;
    bool isPressed_ = false;
    bool hasMenu_ = false;
    bool isPointerGrabbed_ = false;
    /// The last call of `polled` found the button of a press up.
    bool isReleaseOverdue_ = false;
};

}
