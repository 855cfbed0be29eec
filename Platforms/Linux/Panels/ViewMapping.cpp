#include "Panels/ViewMapping.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::x11 {
namespace {

int nearest(double pixel) {
    constexpr double reach = 32767;
    return static_cast<int>(std::clamp(std::floor(pixel + 0.5), -reach, reach));
}

}

QRectF ViewMapping::pixels(const Rect& view) const {
    return {origin.x() + view.x * scale, origin.y() + view.y * scale, view.width * scale,
            view.height * scale};
}

Point ViewMapping::toView(QPointF pixels) const {
    return {(pixels.x() - origin.x()) / scale, (pixels.y() - origin.y()) / scale};
}

QPointF ViewMapping::toPixels(Point view) const {
    return {origin.x() + view.x * scale, origin.y() + view.y * scale};
}

namespace ViewMappings {

QRectF drawnRect(const SceneNode& node, const ViewMapping& mapping) {
    const Point anchor = node.anchor.value_or(node.frame.center());
    const auto along = [&](double value, double fixed, double offset) {
        return fixed + (value - fixed) * node.scale + offset;
    };
    return mapping.pixels({along(node.frame.x, anchor.x, node.offset().x),
                           along(node.frame.y, anchor.y, node.offset().y),
                           node.frame.width * node.scale, node.frame.height * node.scale});
}

QRect snapped(const QRectF& rect) {
    const int left = nearest(rect.left());
    const int top = nearest(rect.top());
    return {left, top, std::max(1, nearest(rect.right()) - left),
            std::max(1, nearest(rect.bottom()) - top)};
}

QRect snappedAsWhole(const QRectF& rect) {
    const int width = std::max(1, nearest(rect.width()));
    const int height = std::max(1, nearest(rect.height()));
    return {nearest(rect.center().x() - width / 2.0), nearest(rect.center().y() - height / 2.0),
            width, height};
}

QRect touched(const SceneNode& node, const ViewMapping& mapping) {
    return drawnRect(node, mapping).toAlignedRect().adjusted(-1, -1, 1, 1);
}

}
}
