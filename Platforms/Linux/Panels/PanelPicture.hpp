/// What one dock's window shows: paints a scene where it changed, brings the pixels to the server,
/// and keeps the window's outline and the region that takes the pointer in step with them.
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

/// Where a window shows its view; pixels.
struct PanelLayout {
    QSize window;
    /// The size that the window was asked to have.
    QSize asked;
    /// The part of the window that is the dock's frame; the rest is there for what is drawn beyond
    /// it, or for a movement's sake.
    QRect active;
    /// What its corner is still away from where it was asked to be.
    QPoint lag;
    ViewMapping mapping;
    /// Points.
    Size view;

    bool operator==(const PanelLayout&) const = default;
};

class PanelPicture {
public:
    /// For a window that exists for as long as this does. The others outlive it.
    PanelPicture(const PanelContext& context, xcb_window_t window);

    void setScene(const Scene& scene);
    [[nodiscard]] const Scene& scene() const noexcept { return scene_; }
    void setLayout(const PanelLayout& layout);
    /// The colours, or what lies behind the glass, have become others.
    void lookChanged() { damageAll(); }

    /// Paints what changed, and sends it if the window is shown.
    void update(bool isShown);

    /// The window has become another window manager's, or is shown by it.
    void managed() { shape_.resendInput(); }

    /// The server has lost pixels of the window, which is shown.
    void exposed();

    /// Paints, and has the server show the picture by itself from the moment the window appears.
    void prepareToAppear();

    /// The scene's quiet regions, in pixels of the window.
    [[nodiscard]] const std::vector<QRect>& quietAreas() const noexcept { return quietAreas_; }

    /// Whether a pixel of the window takes the pointer.
    [[nodiscard]] bool takesPointer(int x, int y) const;

private:
    void damageAll() { damage_.add({{0, 0}, layout_.window}); }
    /// What has been painted.
    Damage paint();
    void placeQuietAreas();
    void applyInput();
    void applyBackdrop();

    /// Pixels of the window.
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
    /// Those of the next scene; kept to spare an allocation each time.
    std::vector<PlacedNode> nextPlaces_;
    std::vector<QRect> quietAreas_;
    Damage damage_;
    /// The server paints the window by itself until it is first shown.
    bool hasBackground_ = false;
};

}
