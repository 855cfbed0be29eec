/// Where a dock's window belongs on its display, and where in the window its view is.
#pragma once

#include "Connection/PixelRect.hpp"
#include "Displays/DisplayGeometry.hpp"
#include "Painting/Pixels/ViewMapping.hpp"
#include "Panels/PanelPicture.hpp"
#include "Platform/PanelWindow.hpp"

#include <optional>
#include <utility>

namespace vireline::x11 {

class PanelGeometry {
public:
    PanelGeometry(const Display& display, const Rect& frame)
        : display_(display), frame_(frame), hostedFrame_{0, 0, frame.width, frame.height} {}

    /// These are as in `PanelWindow`. A window that shrinks with an animation keeps its previous
    /// extent until `endAnimation`.
    void setOverhang(const Overhang& overhang) { nextOverhang_ = overhang; }
    void setFrame(const Rect& frame, bool animate);
    void setHostedFrame(const Rect& frame) { hostedFrame_ = frame; }
    /// Returns whether the window may now be smaller.
    bool endAnimation() { return std::exchange(extentBefore_, std::nullopt).has_value(); }

    void setDisplay(const Display& display) { display_ = display; }
    [[nodiscard]] const Display& display() const noexcept { return display_; }

    /// The view and what it draws beyond its bounds, in its coordinates.
    [[nodiscard]] Rect viewArea() const { return overhang_.around(hostedFrame_.size()); }

    /// Decides where the window belongs; in pixels of the root window.
    void aim();
    [[nodiscard]] const PixelRect& target() const noexcept { return target_; }

    /// The place for which the picture is drawn, if the window is at `actual`.
    [[nodiscard]] PixelRect drawnPlace(const std::optional<PixelRect>& actual) const;

    /// Keeps the view at its planned position on the display, whatever place is drawn for.
    xdg::PanelLayout layOut(const PixelRect& drawnPlace);
    /// That of the last layout.
    [[nodiscard]] const xdg::ViewMapping& mapping() const noexcept { return mapping_; }

private:
    /// The frame including its overhang, in global coordinates.
    [[nodiscard]] Rect extent() const { return overhang_.around(frame_); }

    Display display_;
    Rect frame_;
    Rect hostedFrame_;
    /// The overhang of the current frame, and that of future frames.
    Overhang overhang_;
    Overhang nextOverhang_;
    std::optional<Rect> extentBefore_;
    PixelRect target_;
    xdg::ViewMapping mapping_;
};

}
