#include "Translation/PanelInput.hpp"

#include <utility>

namespace vireline::macos {

void PanelInput::setHosted(const HostedView& hosted) {
    hosted_ = hosted;
    pointer_.setViewSize(hosted.frame.size());
}

bool PanelInput::takesPointer(Point at) const {
    return !inputRegion_ || inputRegion_->contains(hosted_.toView(at));
}

void PanelInput::pressed(Point at, bool asksForMenu) {
    const Point position = hosted_.toView(at);
    if (asksForMenu)
        pointer_.secondaryPressed(position);
    else
        pointer_.pressed(position);
}

void PanelInput::released(Point at, bool isOverWindow) {
    pointer_.released(hosted_.toView(at), isOverWindow);
}

void PanelInput::menuClosed(Point at, bool isOverWindow) {
    pointer_.menuClosed({.isOverWindow = isOverWindow, .position = hosted_.toView(at)});
}

bool PanelInput::dragEntered(const std::vector<std::string>& urls, Point at) {
    dragEnded();
    isDragOver_ = true;
    listener_.dragEntered(urls);
    return dragMoved(at);
}

bool PanelInput::dragMoved(Point at) {
    return isDragOver_ && listener_.dragMoved(hosted_.toView(at));
}

void PanelInput::dragEnded() {
    if (std::exchange(isDragOver_, false))
        listener_.dragExited();
}

bool PanelInput::dropped(Point at) {
    return std::exchange(isDragOver_, false) && listener_.dropped(hosted_.toView(at));
}

}
