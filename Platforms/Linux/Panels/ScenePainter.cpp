#include "Panels/ScenePainter.hpp"

#include "Icons/RasterImage.hpp"

#include <algorithm>

namespace vireline::x11 {
namespace {

/// One node's content, drawn where the node is placed.
struct NodePainter {
    QPainter& painter;
    QImage& canvas;
    const QRect& clip;
    const PlacedNode& place;
    double pixelsPerPoint;
    const DockColors& colors;
    GlassPainter& glasses;
    LabelPainter& labels;
    SmoothScaler& scaler;

    void operator()(const GlassNode& glass) const {
        glasses.draw(painter, place.rect.toRect(),
                     colors.glass(glass.cornerRadius * place.scale, place.scale));
    }

    /// A sharp one is drawn one to one; any other comes from a larger picture.
    void operator()(const ImageNode& node) const {
        const auto* const image = dynamic_cast<const RasterImage*>(node.image.get());
        if (image == nullptr || place.rect.isEmpty())
            return;
        if (place.isSharp) {
            const QRect whole = place.rect.toRect();
            painter.drawImage(whole.topLeft(), image->exact(whole.width()));
            return;
        }
        const double side = std::max(place.rect.width(), place.rect.height());
        scaler.draw(canvas, image->forScaling(side, node.largestSide * pixelsPerPoint),
                    place.rect, place.alpha, clip);
    }

    void operator()(const DotNode& /*dot*/) const {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.dot);
        painter.drawEllipse(place.rect);
    }

    void operator()(const SeparatorNode& separator) const {
        painter.fillPath(Glass::roundedPath(place.rect, separator.cornerRadius * place.scale),
                         colors.separator);
    }

    void operator()(const LabelNode& label) const { labels.draw(painter, label, place, colors); }

    void operator()(const HandleNode& /*handle*/) const {
        painter.fillPath(
            Glass::roundedPath(place.rect, place.rect.height() + place.rect.width()),
            colors.handle);
    }
};

}

void ScenePainter::paint(QImage& canvas, const Scene& scene, const ViewMapping& mapping,
                         const DockColors& colors, std::span<const QRect> damage) {
    QPainter painter{&canvas};
    painter.setRenderHint(QPainter::Antialiasing);
    for (const QRect& rect : damage) {
        const QRect clip = rect & canvas.rect();
        painter.setClipRect(clip);
        for (const SceneNode& node : scene.nodes) {
            const PlacedNode place = ViewMappings::placed(node, mapping);
            if (place.alpha == 0 || !place.touched().intersects(clip))
                continue;
            painter.setOpacity(place.alpha / 255.0);
            std::visit(
                NodePainter{painter, canvas, clip, place, mapping.scale, colors, glass_, label_, scaler_},
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
