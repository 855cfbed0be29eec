/// The content of one dock without a window: a scene that is made into pixels, repainted where it
/// changed, and into the regions that the window needs.
#pragma once

#include "Painting/DockColors.hpp"
#include "Painting/Pixels/Damage.hpp"
#include "Painting/Pixels/ViewMapping.hpp"
#include "Painting/ScenePainter.hpp"
#include "Presentation/Scene.hpp"

#include <QImage>
#include <QRect>
#include <QRegion>
#include <QSize>
#include <vector>

namespace vireline::xdg {

/// Where a window shows its view; in pixels.
struct PanelLayout {
    QSize window;
    /// The part of the window that is the dock's frame; the rest is for drawing that overhangs it
    /// and for animations.
    QRect active;
    ViewMapping mapping;
    /// In points.
    Size view;

    bool operator==(const PanelLayout&) const = default;
};

class PanelPicture {
public:
    void setScene(const Scene& scene);
    [[nodiscard]] const Scene& scene() const noexcept { return scene_; }
    /// Everything is painted again afterwards.
    void setLayout(const PanelLayout& layout);
    [[nodiscard]] const PanelLayout& layout() const noexcept { return layout_; }

    void damageAll() { damage_.add(window()); }
    [[nodiscard]] bool isDamaged() const { return !damage_.isEmpty(); }

    /// Paints what changed on an image of the window's size, and returns where. Over an opaque
    /// backdrop, everything that takes the pointer is painted.
    Damage paint(QImage& image, const DockColors& colors, Backdrop backdrop);

    /// The window, with its corner at the origin.
    [[nodiscard]] QRect window() const { return {{0, 0}, layout_.window}; }
    /// Where the window takes the pointer.
    [[nodiscard]] QRect inputRegion() const;
    /// Where the glass is, behind which a compositor may blur.
    [[nodiscard]] QRegion glass() const;

private:
    [[nodiscard]] QRegion uncoveredByView() const;

    ScenePainter painter_;
    PanelLayout layout_;
    Scene scene_;
    std::vector<PlacedNode> places_;
    /// Places of the next scene; kept to avoid an allocation per scene.
    std::vector<PlacedNode> nextPlaces_;
    Damage damage_;
};

}
