#include "Panels/ScenePainter.hpp"

#include "Icons/RasterImage.hpp"

#include <algorithm>

namespace vireline::x11 {
namespace {

/// One node's content, drawn where the node is placed.
struct NodePainter {
    const Canvas& canvas;
    const QRect& clip;
    const PlacedNode& place;
    double pixelsPerPoint;
    const DockColors& colors;
    ScenePainter::Cache& cache;

    void operator()(const GlassNode& glass) const {
        cache.glass.draw(canvas, place.rect.toRect(),
                         colors.glass(glass.cornerRadius * place.scale, place.scale), place.alpha,
                         clip);
    }

    /// A sharp one is drawn one to one; any other comes from a larger picture.
    void operator()(const ImageNode& node) const {
        const auto* const image = dynamic_cast<const RasterImage*>(node.image.get());
        if (image == nullptr || place.rect.isEmpty())
            return;
        if (place.isSharp) {
            const QRect whole = place.rect.toRect();
            const QImage picture = image->exact(whole.width());
            Pixels::lay(canvas, Pixels::pieceOf(picture, whole.topLeft()), place.alpha, clip);
            return;
        }
        const double side = std::max(place.rect.width(), place.rect.height());
        const QImage picture = image->forScaling(side, node.largestSide * pixelsPerPoint);
        cache.scaler.draw(canvas, Pixels::picture(picture), place.rect, place.alpha, clip);
    }

    void operator()(const DotNode& /*dot*/) const { drawShape(place.rect.width(), colors.dot); }

    void operator()(const SeparatorNode& separator) const {
        drawShape(separator.cornerRadius * place.scale, colors.separator);
    }

    void operator()(const LabelNode& label) const {
        cache.label.draw(canvas, label, place, colors, clip);
    }

    void operator()(const HandleNode& /*handle*/) const {
        drawShape(place.rect.height() + place.rect.width(), colors.handle);
    }

    void drawShape(double radius, const QColor& colour) const {
        const QRect whole = place.rect.toRect();
        const QImage& picture = cache.shapes.picture({whole.size(), radius, colour});
        Pixels::lay(canvas, Pixels::pieceOf(picture, whole.topLeft()), place.alpha, clip);
    }
};

/// What of the rectangle the glass at the bottom of the scene does not replace.
void clear(const Canvas& canvas, const QRect& rect, const Scene& scene, const ViewMapping& mapping) {
    QRect replaced;
    if (!scene.nodes.empty() && std::holds_alternative<GlassNode>(scene.nodes.front().content)) {
        const PlacedNode glass = ViewMappings::placed(scene.nodes.front(), mapping);
        if (glass.alpha == 255)
            replaced = glass.rect.toRect() & rect;
    }
    if (replaced.isEmpty())
        return Pixels::fill(canvas, rect, 0);
    const QPoint corner = rect.bottomRight();
    Pixels::fill(canvas, {rect.topLeft(), QPoint{corner.x(), replaced.top() - 1}}, 0);
    Pixels::fill(canvas, {QPoint{rect.left(), replaced.bottom() + 1}, corner}, 0);
    Pixels::fill(canvas,
                 {QPoint{rect.left(), replaced.top()},
                  QPoint{replaced.left() - 1, replaced.bottom()}},
                 0);
    Pixels::fill(canvas,
                 {QPoint{replaced.right() + 1, replaced.top()},
                  QPoint{corner.x(), replaced.bottom()}},
                 0);
}

}

void ScenePainter::paint(const Canvas& canvas, const Scene& scene, const ViewMapping& mapping,
                         const DockColors& colors, std::span<const QRect> damage) {
    for (const QRect& rect : damage) {
        const QRect clip = rect & canvas.area();
        clear(canvas, clip, scene, mapping);
        for (const SceneNode& node : scene.nodes) {
            const PlacedNode place = ViewMappings::placed(node, mapping);
            if (place.alpha == 0 || !place.touched().intersects(clip))
                continue;
            std::visit(NodePainter{canvas, clip, place, mapping.scale, colors, cache_},
                       node.content);
        }
    }
}

std::vector<QPainterPath> ScenePainter::glassOutlines(const Scene& scene,
                                                      const ViewMapping& mapping) {
    std::vector<QPainterPath> outlines;
    for (const SceneNode& node : scene.nodes) {
        const PlacedNode place = ViewMappings::placed(node, mapping);
        if (place.alpha == 0)
            continue;
        if (const auto* glass = std::get_if<GlassNode>(&node.content)) {
            outlines.push_back(Glass::roundedPath(place.rect, glass->cornerRadius * place.scale));
        } else if (const auto* label = std::get_if<LabelNode>(&node.content)) {
            const QRect capsule = LabelPainter::capsule(*label, place);
            outlines.push_back(Glass::roundedPath(capsule, capsule.height()));
        }
    }
    return outlines;
}

}
