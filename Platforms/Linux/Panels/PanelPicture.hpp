/// The content of one dock's window: repaints a scene where it changed, sends the pixels to the
/// server, and keeps the window's shape and input region in step.
#pragma once

#include "Painting/Damage.hpp"
#include "Painting/DockColors.hpp"
#include "Painting/ScenePainter.hpp"
#include "Painting/ViewMapping.hpp"
#include "Panels/PanelSurface.hpp"
#include "Panels/WindowShape.hpp"
#include "Presentation/Scene.hpp"

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace vireline::x11 {

class Appearance;
class DesktopWatch;
struct PanelContext;

/// Where a window shows its view; in pixels.
struct PanelLayout {
    QSize window;
    /// The size that was requested for the window.
    QSize asked;
    /// The part of the window that is the dock's frame; the rest is for drawing that overhangs it
    /// and for animations.
    QRect active;
    /// Distance from the requested position to the current one.
    QPoint lag;
    ViewMapping mapping;
    /// In points.
    Size view;

    bool operator==(const PanelLayout&) const = default;
};

class PanelPicture {
public:
    /// The window must outlive this object, and so must everything in `context`.
    PanelPicture(const PanelContext& context, xcb_window_t window);

    void setScene(const Scene& scene);
    [[nodiscard]] const Scene& scene() const noexcept { return scene_; }
    void setLayout(const PanelLayout& layout);
    /// The colours or the backdrop have changed.
    void lookChanged() { damageAll(); }

    /// Paints what changed, and sends it to the server if the window is shown.
    void update(bool isShown);

    /// A window manager has started to manage the window.
    void managed() { shape_.resendInput(); }

    /// The server has lost pixels of the visible window.
    void exposed();

    /// Paints, and lets the server itself show the picture from the moment the window appears.
    void prepareToAppear();

    /// The scene's quiet regions, in pixels of the window.
    [[nodiscard]] const std::vector<QRect>& quietAreas() const noexcept { return quietAreas_; }

    /// Whether the window receives the pointer at this pixel.
    [[nodiscard]] bool takesPointer(int x, int y) const;

private:
    void damageAll() { damage_.add({{0, 0}, layout_.window}); }
    /// Returns what was painted.
    Damage paint();
    void placeQuietAreas();
    void applyInput();
    void applyBackdrop();

    /// In pixels of the window.
    [[nodiscard]] QRect inputRegion() const;
    [[nodiscard]] std::vector<xcb_rectangle_t> wholeWindow() const;
    [[nodiscard]] Backdrop backdrop() const;
    [[nodiscard]] DockColors colors() const;
    [[nodiscard]] std::optional<std::uint32_t> base() const;
    [[nodiscard]] QRegion uncoveredByView() const;
    [[nodiscard]] std::vector<xcb_rectangle_t> blurRegion() const;

    const DesktopWatch& desktop_;
    const Appearance& appearance_;
    PanelSurface surface_;
    WindowShape shape_;
    ScenePainter painter_;
    PanelLayout layout_;
    Scene scene_;
    std::vector<PlacedNode> places_;
    /// Places of the next scene; kept to avoid an allocation per scene.
    std::vector<PlacedNode> nextPlaces_;
    std::vector<QRect> quietAreas_;
    Damage damage_;
    /// The server paints the window by itself until it is first exposed.
    bool hasBackground_ = false;
};

}
