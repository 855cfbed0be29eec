#include "Views/Input/PointerTracker.hpp"

#include <utility>

namespace vireline {

using Kind = PointerEvent::Kind;

void PointerTracker::entered(Point position, bool isButtonHeld) {
    if (isButtonHeld && !isPressed_)
        return;
    isPointerGrabbed_ = false;
    if (hasMenu_)
        return;
    enter();
    moved(position);
}

void PointerTracker::moved(Point position) {
    isPointerGrabbed_ = false;
    if (hasMenu_)
        return;
    if (isPressed_) {
        send(Kind::moved, position);
    } else if (!isInside_) {
        entered(position);
    } else {
        hover(position);
    }
}

void PointerTracker::pressed(Point position) {
    if (hasMenu_ || isPressed_)
        return;
    enter();
    if (!isOnView(position))
        return;
    isPressed_ = true;
    isReleaseOverdue_ = false;
    // The press may come without a preceding movement.
    isOnView_ = true;
    send(Kind::pressed, position);
}

void PointerTracker::secondaryPressed(Point position) {
    if (!hasMenu_ && !isPressed_ && isOnView(position))
        send(Kind::secondaryPressed, position);
}

void PointerTracker::middlePressed(Point position) {
    if (!hasMenu_ && !isPressed_ && isOnView(position))
        send(Kind::middlePressed, position);
}

void PointerTracker::released(Point position, bool isOverWindow, std::optional<double> time) {
    if (!isPressed_)
        return;
    isPressed_ = false;
    listener_.pointerEvent({.kind = Kind::released, .position = position, .time = time});
    if (hasMenu_)
        return;
    if (isOverWindow) {
        hover(position);
    } else {
        leave();
    }
}

void PointerTracker::left(const PointerState& now) {
    isPointerGrabbed_ = false;
    if (hasMenu_)
        return;
    if (isPressed_ && now.isPrimaryHeld)
        return;
    cancelled();
    if (now.isOverWindow) {
        isPointerGrabbed_ = isInside_;
    } else {
        leave();
    }
}

void PointerTracker::cancelled() {
    if (std::exchange(isPressed_, false))
        send(Kind::cancelled);
}

void PointerTracker::polled(const PointerState& now) {
    if (!isPressed_) {
        if (isPointerGrabbed_)
            left(now);
    } else if (now.isPrimaryHeld) {
        isReleaseOverdue_ = false;
    } else if (std::exchange(isReleaseOverdue_, true)) {
        left(now);
    }
}

void PointerTracker::menuOpened() {
    isPointerGrabbed_ = false;
    hasMenu_ = true;
    cancelled();
}

void PointerTracker::menuClosed(const PointerState& now) {
    hasMenu_ = false;
    if (now.isOverWindow) {
        entered(now.position);
    } else {
        leave();
    }
}

void PointerTracker::hidden() {
    isPointerGrabbed_ = false;
    cancelled();
    leave();
}

void PointerTracker::send(Kind kind, Point position) {
    listener_.pointerEvent({.kind = kind, .position = position});
}

void PointerTracker::enter() {
    if (std::exchange(isInside_, true))
        return;
    listener_.mouseEntered();
}

void PointerTracker::hover(Point position) {
    const bool wasOnView = isOnView_;
    isOnView_ = isOnView(position);
    if (isOnView_) {
        send(Kind::moved, position);
    } else if (wasOnView) {
        send(Kind::exited);
    }
}

void PointerTracker::leave() {
    if (isOnView_) {
        isOnView_ = false;
        send(Kind::exited);
    }
    if (isInside_) {
        isInside_ = false;
        listener_.mouseExited();
    }
}

bool PointerTracker::isOnView(Point position) const {
    return viewArea_.contains(position);
}

}
