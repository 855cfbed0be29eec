#include "Panels/Pointer/PanelPointer.hpp"

#include "Panels/Context/PanelContext.hpp"
#include "Panels/Pointer/PointerQuery.hpp"

namespace vireline::x11 {
namespace {

/// Milliseconds between two checks of a pointer that another client has grabbed.
constexpr int doubtInterval = 250;

/// Milliseconds until the next frame is requested for a sample after a movement that moved nothing,
/// as on a dock that does not magnify, where at most the label changes. Two frames of usual
/// displays: on a dock that magnifies, a movement across it changes nothing either, and one that
/// follows along it must not be seen to start late. Longer than a fade's frame, which takes a
/// sample too.
constexpr int pauseInterval = 33;

}

PanelPointer::PanelPointer(const PanelContext& context, PanelWindowListener& listener,
                           Window& window)
    : context_(context), owner_(window), tracker_(listener) {
    doubt_.setInterval(doubtInterval);
    QObject::connect(&doubt_, &QTimer::timeout, &doubt_, [this] { look(); });
    pause_.setSingleShot(true);
    pause_.setInterval(pauseInterval);
    pause_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pause_, &QTimer::timeout, &pause_, [this] { owner_.requestTick(); });
}

void PanelPointer::setWindow(xcb_window_t window) {
    window_ = window;
    sampler_.reset();
    if (window != XCB_NONE)
        sampler_ = std::make_unique<PointerSampler>(context_, window);
}

void PanelPointer::entered(QPointF pixel) {
    const auto place = PointerQuery::place(context_.connection, window_);
    tracker_.entered(owner_.viewPosition(pixel), place && place->isAnyHeld);
}

void PanelPointer::left() {
    tracker_.left(pointerState());
    hasLeft();
}

void PanelPointer::look() {
    const bool isWatched = tracker_.isPressed() || tracker_.isPointerGrabbed();
    if (isWatched)
        tracker_.polled(pointerState());
    if (!tracker_.isPointerGrabbed())
        doubt_.stop();
    if (isWatched && !tracker_.isPressed())
        hasLeft();
}

/// Keeps polling for as long as another client holds the pointer grab.
void PanelPointer::hasLeft() {
    if (sampler_ && !tracker_.isPressed())
        sampler_->stop();
    if (tracker_.isPointerGrabbed()) {
        doubt_.start();
    } else {
        doubt_.stop();
    }
}

void PanelPointer::moved(QPointF pixel) {
    // During a press Qt's events are needed, because they report the final position before the
    // release.
    if (sampler_ && sampler_->isSampling() && !tracker_.isPressed())
        return;
    tracker_.moved(owner_.viewPosition(pixel));
    if (sampler_) {
        sampler_->start();
        owner_.requestTick();
    }
}

void PanelPointer::pressed(Qt::MouseButton button, QPointF pixel) {
    pause_.stop();
    // The last sample may be newer than the press.
    if (sampler_)
        sampler_->forget();
    if (button == Qt::LeftButton) {
        tracker_.pressed(owner_.viewPosition(pixel));
    } else if (button == Qt::RightButton) {
        tracker_.secondaryPressed(owner_.viewPosition(pixel));
    } else if (button == Qt::MiddleButton) {
        tracker_.middlePressed(owner_.viewPosition(pixel));
    }
    follow();
}

void PanelPointer::released(Qt::MouseButton button, QPointF pixel) {
    if (button != Qt::LeftButton)
        return;
    const bool isOverWindow = owner_.takesPointer(pixel);
    if (sampler_ && !isOverWindow)
        sampler_->stop();
    tracker_.released(owner_.viewPosition(pixel), isOverWindow);
}

void PanelPointer::hidden() {
    if (sampler_)
        sampler_->stop();
    tracker_.hidden();
    doubt_.stop();
}

void PanelPointer::menuClosed() {
    tracker_.menuClosed(pointerState());
}

void PanelPointer::sample() {
    if (!sampler_ || !sampler_->isSampling())
        return;
    const auto pixel = sampler_->sample(tracker_.isPressed());
    if (!pixel)
        return;
    // Outside the window the pointer is leaving it, unless a button is held.
    if (tracker_.isPressed() || owner_.takesPointer(*pixel))
        tracker_.moved(owner_.viewPosition(*pixel));
    if (owner_.isFrameRequested())
        pause_.stop();
    else
        pause_.start();
}

void PanelPointer::follow() {
    if (!sampler_ || !sampler_->isSampling() || pause_.isActive())
        return;
    if (owner_.followsPointer() || tracker_.isPressed())
        owner_.requestTick();
    else
        pause_.start();
}

PointerTracker::PointerState PanelPointer::pointerState() const {
    if (window_ == XCB_NONE)
        return {};
    const auto place = PointerQuery::place(context_.connection, window_);
    if (!place)
        return {};
    const QPointF pixel(place->x, place->y);
    return {.isOverWindow = place->isUncovered && owner_.takesPointer(pixel),
            .isPrimaryHeld = place->isPrimaryHeld,
            .position = owner_.viewPosition(pixel)};
}

}
