/// Paints a scene's few kinds of nodes. Nothing else on this platform looks at a node's kind to
/// draw it. Keeps pictures of what is drawn alike from frame to frame.
#pragma once

#include "Painting/DockColors.hpp"
#include "Painting/Glass.hpp"
#include "Painting/LabelPainter.hpp"
#include "Painting/Pixels.hpp"
#include "Painting/RoundedShapes.hpp"
#include "Painting/SceneDamage.hpp"
#include "Painting/SmoothScaler.hpp"

#include <QPainterPath>
#include <QRect>
#include <span>
#include <vector>

namespace vireline::x11 {

class ScenePainter {
public:
    /// What is kept from frame to frame.
    struct Cache {
        GlassPainter glass;
        LabelPainter label;
        RoundedShapes shapes;
        SmoothScaler scaler;
    };

    /// Paints what of the scene lies in one of the rectangles, in place of what is on the canvas.
    void paint(const Canvas& canvas, const PlacedScene& scene, double pixelsPerPoint,
               const DockColors& colors, std::span<const QRect> damage);

    /// The outlines of the scene's glass, the label's included, in pixels: what a compositor may
    /// blur the background of.
    [[nodiscard]] static std::vector<QPainterPath> glassOutlines(const PlacedScene& scene);

private:
    Cache cache_;
};

}
