/// Paints a scene's nodes, and caches images of what looks the same from frame to frame.
#pragma once

#include "Painting/BadgePainter.hpp"
#include "Painting/DockColors.hpp"
#include "Painting/Glass.hpp"
#include "Painting/LabelPainter.hpp"
#include "Painting/Pixels/Pixels.hpp"
#include "Painting/Pixels/SmoothScaler.hpp"
#include "Painting/RoundedShapes.hpp"
#include "Painting/SceneDamage.hpp"

#include <QPainterPath>
#include <QRect>
#include <span>
#include <vector>

namespace vireline::xdg {

class ScenePainter {
public:
    /// Images kept from frame to frame.
    struct Cache {
        GlassPainter glass;
        LabelPainter label;
        RoundedShapes shapes;
        BadgePainter badge;
        SmoothScaler scaler;
    };

    /// Repaints the parts of the scene that lie in one of the rectangles, replacing what is on the
    /// canvas.
    void paint(const Canvas& canvas, const PlacedScene& scene, double pixelsPerPoint,
               const DockColors& colors, std::span<const QRect> damage);

    /// The outlines of the scene's glass, including the label's, in pixels, behind which a
    /// compositor may blur.
    [[nodiscard]] static std::vector<QPainterPath> glassOutlines(const PlacedScene& scene);

private:
    Cache cache_;
};

}
