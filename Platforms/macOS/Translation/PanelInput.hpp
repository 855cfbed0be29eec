/// Translates the events of a dock's window into calls of its listener. Positions are in the
/// window's coordinates: origin bottom-left, y upwards.
#pragma once

#include "Foundation/NonCopyable.hpp"
#include "Translation/HostedView.hpp"
#include "Views/Input/PointerTracker.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vireline::macos {

class PanelInput : private NonCopyable {
public:
    explicit PanelInput(PanelWindowListener& listener) : listener_(listener), pointer_(listener) {}

    [[nodiscard]] PanelWindowListener& listener() noexcept { return listener_; }

    [[nodiscard]] const HostedView& hosted() const noexcept { return hosted_; }
    void setHosted(const HostedView& hosted);
    /// Sets the overhang of a window whose frame has this size.
    void setOverhang(const Overhang& overhang, Size frame);
    /// In the view's coordinates; nullopt means the whole frame.
    void setInputRegion(const std::optional<Rect>& region) { inputRegion_ = region; }
    [[nodiscard]] bool takesPointer(Point at) const;
    /// Whether a point of the window counts as over the dock.
    [[nodiscard]] bool isOver(Point at) const;

    void pointerEntered(Point at, bool isButtonHeld);
    void pointerMoved(Point at);
    void pointerLeft(bool isPrimaryHeld) {
        pointer_.left({.isPrimaryHeld = isPrimaryHeld, .position = {}});
    }
    void pressed(Point at, bool asksForMenu);
    /// `time` is in seconds on the run loop's clock.
    void released(Point at, bool isOverWindow, std::optional<double> time = std::nullopt);
    void cancelled() { pointer_.cancelled(); }
    /// To be called regularly during a press, of whose release there may be no event.
    void polled(Point at, bool isOverWindow, bool isPrimaryHeld) {
        pointer_.polled({isOverWindow, isPrimaryHeld, hosted_.toView(at)});
    }
    void hidden() { pointer_.hidden(); }

    void menuOpened() { pointer_.menuOpened(); }
    void menuClosed(Point at, bool isOverWindow);

    /// A drag entered the window, or moved over it. Returns whether it could be dropped there.
    bool dragEntered(const std::vector<std::string>& urls, Point at);
    bool dragMoved(Point at);
    /// The drag left, or ended elsewhere. The system may report both.
    void dragEnded();
    bool dropped(Point at);

private:
    [[nodiscard]] bool isInOverhang(Point at) const;
    void leaveDrag();

    PanelWindowListener& listener_;
    PointerTracker pointer_;
    HostedView hosted_;
    Overhang overhang_;
    Size frame_;
    std::optional<Rect> inputRegion_;
    /// The URLs that are dragged over the window.
    std::vector<std::string> draggedURLs_;
    /// Whether the drag is over the dock.
    bool isDragOver_ = false;
};

}
