/// Makes sense of what a window system tells of the pointer over a dock's window: a menu or
/// somebody else's grab looks like leaving, a button held down keeps the pointer here wherever it
/// goes.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Platform/PanelWindow.hpp"

#include <optional>

namespace vireline {

class PointerTracker {
public:
    /// Where the pointer really is, whatever the last event said.
    struct Whereabouts {
        bool isOverWindow = false;
        bool isPrimaryHeld = false;
        /// The view's coordinates.
        Point position;
    };

    explicit PointerTracker(PanelWindowListener& listener) : listener_(listener) {}

    /// Where the hosted view draws, in its own coordinates; positions beside that are in the window
    /// but not on the view.
    void setViewArea(const Rect& area) { viewArea_ = area; }

    /// A pointer that comes with a button held is in the middle of something else, such as moving a
    /// window. Where the button is let go here, there is word of it again.
    void entered(Point position, bool isButtonHeld = false);
    void moved(Point position);
    void pressed(Point position);
    void secondaryPressed(Point position);
    void released(Point position, bool isOverWindow, std::optional<double> time = std::nullopt);
    void left(const Whereabouts& now);

    /// The press was cancelled.
    void cancelled();

    /// For looks taken every so often during a press, or while the pointer is in doubt: nothing may
    /// tell of a release that goes elsewhere. Two looks in a row that find the button up end a
    /// press, since at the first the release may be on its way.
    void lookedAt(const Whereabouts& now);

    /// Until it closes, the pointer belongs to the menu.
    void menuOpened();
    void menuClosed(const Whereabouts& now);

    /// The window is not shown any more.
    void hidden();

    /// The primary button is down since it was pressed here; the pointer may be anywhere.
    [[nodiscard]] bool isPressed() const noexcept { return isPressed_; }

    [[nodiscard]] bool hasMenu() const noexcept { return hasMenu_; }

    /// Somebody else holds the pointer, which was here when last heard of: nothing will tell when
    /// it really leaves.
    [[nodiscard]] bool isInDoubt() const noexcept { return isInDoubt_; }

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
    bool isInDoubt_ = false;
    /// The last look found the button of a press up.
    bool isReleaseOverdue_ = false;
};

}
