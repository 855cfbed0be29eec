#include "Translation/PanelInput.hpp"

#include <utility>

namespace vireline::macos {

void PanelInput::setHosted(const HostedView& hosted) {
    hosted_ = hosted;
    pointer_.setViewArea(overhang_.around(hosted.frame.size()));
}

void PanelInput::setOverhang(const Overhang& overhang, Size frame) {
    overhang_ = overhang;
    frame_ = frame;
    pointer_.setViewArea(overhang_.around(hosted_.frame.size()));
}

/// Sides without an overhang are unlimited, since the window may still be larger while it is
/// animated to its frame. A pointer position denotes the pixel to the right of it and below it,
/// which, as y grows upwards, has the smaller y.
bool PanelInput::isInOverhang(Point at) const {
    return at.x < overhang_.left || (overhang_.bottom > 0 && at.y <= overhang_.bottom) ||
           (overhang_.right > 0 && at.x >= overhang_.left + frame_.width) ||
           (overhang_.top > 0 && at.y > overhang_.bottom + frame_.height);
}

bool PanelInput::takesPointer(Point at) const {
    return inputRegion_ ? inputRegion_->contains(hosted_.toView(at)) : !isInOverhang(at);
}

bool PanelInput::isOver(Point at) const {
    return takesPointer(at) || !isInOverhang(at);
}

void PanelInput::pointerEntered(Point at, bool isButtonHeld) {
    if (isOver(at))
        pointer_.entered(hosted_.toView(at), isButtonHeld);
}

void PanelInput::pointerMoved(Point at) {
    if (isOver(at) || pointer_.isPressed())
        pointer_.moved(hosted_.toView(at));
    else
        pointer_.left({});
}

void PanelInput::pressed(Point at, bool asksForMenu) {
    const Point position = hosted_.toView(at);
    if (asksForMenu)
        pointer_.secondaryPressed(position);
    else
        pointer_.pressed(position);
}

void PanelInput::released(Point at, bool isOverWindow, std::optional<double> time) {
    pointer_.released(hosted_.toView(at), isOverWindow && isOver(at), time);
}

void PanelInput::menuClosed(Point at, bool isOverWindow) {
    pointer_.menuClosed(
        {.isOverWindow = isOverWindow && isOver(at), .position = hosted_.toView(at)});
}

bool PanelInput::dragEntered(const std::vector<std::string>& urls, Point at) {
    dragEnded();
    draggedURLs_ = urls;
    return dragMoved(at);
}

/// A drag that passes over the overhang leaves and enters the dock without leaving the window.
bool PanelInput::dragMoved(Point at) {
    if (!isOver(at)) {
        leaveDrag();
        return false;
    }
    if (!std::exchange(isDragOver_, true))
        listener_.dragEntered(draggedURLs_);
    return listener_.dragMoved(hosted_.toView(at));
}

void PanelInput::dragEnded() {
    draggedURLs_.clear();
    leaveDrag();
}

void PanelInput::leaveDrag() {
    if (std::exchange(isDragOver_, false))
        listener_.dragExited();
}

bool PanelInput::dropped(Point at) {
    return std::exchange(isDragOver_, false) && listener_.dropped(hosted_.toView(at));
}

}
