/// Shows a dock's picture in its window: sends the pixels to the server, and keeps the window's
/// shape and input region in step.
#pragma once

#include "Panels/PanelPicture.hpp"
#include "Panels/Picture/PanelSurface.hpp"
#include "Panels/Picture/WindowShape.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace vireline::xdg {
class Appearance;
}

namespace vireline::x11 {

class DesktopWatch;
struct PanelContext;

/// How a window's place differs from the one that was requested for it; in pixels.
struct PanelDelay {
    /// The size that was requested for the window.
    QSize asked;
    /// Distance from the requested position to the current one.
    QPoint lag;

    bool operator==(const PanelDelay&) const = default;
};

class PanelPresenter {
public:
    /// The window must outlive this object, and so must everything in `context`.
    PanelPresenter(const PanelContext& context, xcb_window_t window);

    void setScene(const Scene& scene) { picture_.setScene(scene); }
    [[nodiscard]] const Scene& scene() const noexcept { return picture_.scene(); }
    void setLayout(const xdg::PanelLayout& layout, const PanelDelay& delay);
    /// The colours or the backdrop have changed.
    void lookChanged() { picture_.damageAll(); }

    /// Paints what changed, and sends it to the server if the window is shown.
    void update(bool isShown);

    /// A window manager has started to manage the window.
    void managed() { shape_.resendInput(); }

    /// The server has lost pixels of the visible window.
    void exposed();

    /// Paints, and lets the server itself show the picture from the moment the window appears.
    void prepareToAppear();

    /// Whether the window receives the pointer at this pixel.
    [[nodiscard]] bool takesPointer(int x, int y) const;

private:
    void applyInput();
    void applyBackdrop();

    [[nodiscard]] std::vector<xcb_rectangle_t> wholeWindow() const;
    [[nodiscard]] xdg::Backdrop backdrop() const;
    [[nodiscard]] xdg::DockColors colors() const;
    [[nodiscard]] std::optional<std::uint32_t> base() const;
    [[nodiscard]] std::vector<xcb_rectangle_t> blurRegion() const;

    const DesktopWatch& desktop_;
    const xdg::Appearance& appearance_;
    PanelSurface surface_;
    WindowShape shape_;
    xdg::PanelPicture picture_;
    PanelDelay delay_;
    /// The server paints the window by itself until it is first exposed.
    bool hasBackground_ = false;
};

}
