#include "Panels/PanelGeometry.hpp"

namespace vireline::x11 {

/// The kit animates the content; the window only has to be large enough for both frames.
void PanelGeometry::setFrame(const Rect& frame, bool animate) {
    const Rect before = extentBefore_.value_or(extent());
    frame_ = frame;
    overhang_ = nextOverhang_;
    const bool shrinks = before.united(extent()) == before;
    extentBefore_ = animate && shrinks ? std::optional{before} : std::nullopt;
}

void PanelGeometry::aim() {
    target_ = DisplayGeometry::toPixels(display_, extentBefore_.value_or(extent()));
}

/// Far from its place a window shows nothing of the dock. It keeps the picture and the regions for
/// its return: window managers put a new frame in the screen's corner before they move it.
PixelRect PanelGeometry::drawnPlace(const std::optional<PixelRect>& actual) const {
    const PixelRect place = actual.value_or(target_);
    const bool isAway = place.overlap(target_) == 0;
    return isAway ? PixelRect{target_.x, target_.y, place.width, place.height} : place;
}

xdg::PanelLayout PanelGeometry::layOut(const PixelRect& drawnPlace) {
    const PixelRect planned = DisplayGeometry::toPixels(display_, frame_);
    const PixelRect view = DisplayGeometry::viewPixels(display_, frame_, hostedFrame_);
    const QPoint corner{planned.x - drawnPlace.x, planned.y - drawnPlace.y};
    mapping_ = {corner + QPoint{view.x, view.y}, display_.scale};
    return {.window = {drawnPlace.width, drawnPlace.height},
            .active = {corner, QSize{planned.width, planned.height}},
            .mapping = mapping_,
            .view = hostedFrame_.size()};
}

}
