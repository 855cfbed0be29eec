#include "Painting/ScenePainter.hpp"

#include "Icons/IconImage.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::xdg {
namespace {

/// Draws the content of one node at its position.
struct NodePainter {
    const Canvas& canvas;
    const QRect& clip;
    const PlacedNode& place;
    bool isBackground;
    double pixelsPerPoint;
    const DockColors& colors;
    ScenePainter::Cache& cache;

    void operator()(const GlassNode& glass) const {
        const GlassLook look = colors.glass(glass.cornerRadius * place.scale, place.scale);
        if (isBackground) {
            cache.glass.copy(canvas, place.rect.toRect(), look, clip);
        } else {
            cache.glass.blend(canvas, place.rect.toRect(), look, place.alpha, clip);
        }
    }

    /// A sharp image is drawn unscaled; any other is scaled down from a larger one.
    void operator()(const ImageNode& node) const {
        const auto* const image = dynamic_cast<const IconImage*>(node.image.get());
        if (image == nullptr || place.rect.isEmpty())
            return;
        if (place.isSharp) {
            const QRect whole = place.rect.toRect();
            const QImage picture = image->exact(whole.width());
            Pixels::blend(canvas, Pixels::pieceOf(picture, whole.topLeft()), place.alpha, clip);
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

    void operator()(const BadgeNode& badge) const {
        cache.badge.draw(canvas, badge.text, place, colors, clip);
    }

    /// The fill is inside the groove, and at least a circle, so that the beginning can be seen.
    void operator()(const ProgressNode& progress) const {
        const QRect groove = place.rect.toRect();
        drawShape(groove, groove.height(), colors.progressGroove);
        const int line = std::max(1, groove.height() / 5);
        QRect fill = groove.adjusted(line, line, -line, -line);
        const double width = fill.height() + progress.fraction * (fill.width() - fill.height());
        fill.setWidth(std::max(1, static_cast<int>(std::lround(width))));
        drawShape(fill, fill.height(), colors.progressFill);
    }

    void operator()(const MarkNode& /*mark*/) const {
        drawShape(place.rect.height() + place.rect.width(), colors.mark);
    }

    void drawShape(double radius, const QColor& colour) const {
        drawShape(place.rect.toRect(), radius, colour);
    }

    void drawShape(const QRect& whole, double radius, const QColor& colour) const {
        const QImage& picture = cache.shapes.picture({whole.size(), radius, colour});
        Pixels::blend(canvas, Pixels::pieceOf(picture, whole.topLeft()), place.alpha, clip);
    }
};

/// The glass at the bottom of the scene; empty unless it is fully faded in.
QRect backgroundOf(const PlacedScene& scene) {
    const bool hasGlass =
        !scene.nodes.empty() && std::holds_alternative<GlassNode>(scene.nodes.front().content);
    return hasGlass && scene.places.front().alpha == 255 ? scene.places.front().rect.toRect()
                                                         : QRect{};
}

/// Clears the rectangle, except for the part that the background will overwrite.
void clear(const Canvas& canvas, const QRect& rect, const QRect& background) {
    const QRect kept = background & rect;
    if (kept.isEmpty())
        return Pixels::fill(canvas, rect, 0);
    const auto clearBetween = [&](int left, int top, int right, int bottom) {
        Pixels::fill(canvas, {QPoint{left, top}, QPoint{right, bottom}}, 0);
    };
    clearBetween(rect.left(), rect.top(), rect.right(), kept.top() - 1);
    clearBetween(rect.left(), kept.bottom() + 1, rect.right(), rect.bottom());
    clearBetween(rect.left(), kept.top(), kept.left() - 1, kept.bottom());
    clearBetween(kept.right() + 1, kept.top(), rect.right(), kept.bottom());
}

}

void ScenePainter::paint(const Canvas& canvas, const PlacedScene& scene, double pixelsPerPoint,
                         const DockColors& colors, std::span<const QRect> damage) {
    const QRect background = backgroundOf(scene);
    for (const QRect& rect : damage) {
        const QRect clip = rect & canvas.area();
        clear(canvas, clip, background);
        for (std::size_t i = 0; i < scene.nodes.size(); ++i) {
            const PlacedNode& place = scene.places[i];
            const bool isBackground = i == 0 && !background.isEmpty();
            if (place.alpha > 0 && place.touched().intersects(clip)) {
                std::visit(
                    NodePainter{canvas, clip, place, isBackground, pixelsPerPoint, colors, cache_},
                    scene.nodes[i].content);
            }
        }
    }
}

std::vector<QPainterPath> ScenePainter::glassOutlines(const PlacedScene& scene) {
    std::vector<QPainterPath> outlines;
    for (std::size_t i = 0; i < scene.nodes.size(); ++i) {
        const PlacedNode& place = scene.places[i];
        if (place.alpha == 0)
            continue;
        const auto& content = scene.nodes[i].content;
        if (const auto* glass = std::get_if<GlassNode>(&content)) {
            outlines.push_back(Glass::roundedPath(place.rect, glass->cornerRadius * place.scale));
        } else if (const auto* label = std::get_if<LabelNode>(&content)) {
            const QRect capsule = LabelPainter::capsule(*label, place);
            outlines.push_back(Glass::roundedPath(capsule, capsule.height()));
        }
    }
    return outlines;
}

}
