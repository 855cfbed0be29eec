#include "Painting/Pixels/ViewMapping.hpp"

#include "Painting/Pixels/NearestPixel.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::xdg {
namespace {

/// Rounds to steps too small to see, so that invisible movements cause no repaint.
QRectF inSmallSteps(const QRectF& rect) {
    constexpr double steps = 16;
    const auto rounded = [](double pixel) { return std::floor(pixel * steps + 0.5) / steps; };
    const double left = rounded(rect.left());
    const double top = rounded(rect.top());
    return {left, top, rounded(rect.right()) - left, rounded(rect.bottom()) - top};
}

/// Where a node is drawn, with its scale and offset applied, in fractional pixels.
QRectF drawnRect(const SceneNode& node, const ViewMapping& mapping) {
    const Point anchor = node.anchor.value_or(node.frame.center());
    const auto along = [&](double value, double fixed, double offset) {
        return fixed + (value - fixed) * node.scale + offset;
    };
    return mapping.pixels({along(node.frame.x, anchor.x, node.offset().x),
                           along(node.frame.y, anchor.y, node.offset().y),
                           node.frame.width * node.scale, node.frame.height * node.scale});
}

bool isAtRest(const ImageNode& image, const QRectF& rect, double scale) {
    constexpr double tolerance = 1.0 / 64;
    const double side = std::max(rect.width(), rect.height());
    return std::abs(side - image.restingSide * scale) < tolerance * scale;
}

/// Nudges a dot towards its tile. Dots often lie exactly between two pixels, and would otherwise be
/// rounded towards the strip's outline.
QRectF awayFromTheEdge(QRectF rect, const SceneNode& node) {
    constexpr double little = 1.0 / 256;
    const Point dot = node.frame.center();
    const Point tile = node.anchor.value_or(dot);
    const auto step = [](double from, double to) {
        return to == from ? 0 : std::copysign(little, to - from);
    };
    return rect.translated(step(dot.x, tile.x), step(dot.y, tile.y));
}

}

QRectF ViewMapping::pixels(const Rect& view) const {
    return {origin.x() + view.x * scale, origin.y() + view.y * scale, view.width * scale,
            view.height * scale};
}

QRect ViewMapping::pixelsIn(const Rect& view) const {
    const QRectF exact = pixels(view);
    const QPoint first{static_cast<int>(std::ceil(exact.left())),
                       static_cast<int>(std::ceil(exact.top()))};
    const QPoint end{static_cast<int>(std::ceil(exact.right())),
                     static_cast<int>(std::ceil(exact.bottom()))};
    return {first, end - QPoint{1, 1}};
}

Point ViewMapping::toView(QPointF pixels) const {
    return {(pixels.x() - origin.x()) / scale, (pixels.y() - origin.y()) / scale};
}

QPointF ViewMapping::toPixels(Point view) const {
    return {origin.x() + view.x * scale, origin.y() + view.y * scale};
}

QRect PlacedNode::touched() const {
    return rect.toAlignedRect().adjusted(-1, -1, 1, 1);
}

namespace ViewMappings {

PlacedNode placed(const SceneNode& node, const ViewMapping& mapping) {
    const QRectF rect = drawnRect(node, mapping);
    PlacedNode place;
    place.scale = mapping.scale * node.scale;
    place.alpha = static_cast<int>(std::lround(std::clamp(node.opacity, 0.0, 1.0) * 255));
    const auto* const image = std::get_if<ImageNode>(&node.content);
    const bool isBar = std::holds_alternative<GlassNode>(node.content) ||
                       std::holds_alternative<HandleNode>(node.content);
    if (image != nullptr && !isAtRest(*image, rect, mapping.scale)) {
        place.rect = inSmallSteps(rect);
        place.isSharp = false;
    } else if (std::holds_alternative<LabelNode>(node.content)) {
        // The label chooses its position within this area.
        place.rect = inSmallSteps(rect);
    } else {
        place.rect = isBar ? snapped(rect) : snappedAsWhole(awayFromTheEdge(rect, node));
    }
    return place;
}

void place(std::vector<PlacedNode>& places, const Scene& scene, const ViewMapping& mapping) {
    places.clear();
    for (const SceneNode& node : scene.nodes)
        places.push_back(placed(node, mapping));
}

QRect snapped(const QRectF& rect) {
    const int left = nearestPixel(rect.left());
    const int top = nearestPixel(rect.top());
    return {left, top, std::max(1, nearestPixel(rect.right()) - left),
            std::max(1, nearestPixel(rect.bottom()) - top)};
}

QRect snappedAsWhole(const QRectF& rect) {
    const int width = std::max(1, nearestPixel(rect.width()));
    const int height = std::max(1, nearestPixel(rect.height()));
    return {nearestPixel(rect.center().x() - width / 2.0),
            nearestPixel(rect.center().y() - height / 2.0), width, height};
}

}
}
