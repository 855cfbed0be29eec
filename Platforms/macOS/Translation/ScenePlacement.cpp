#include "Translation/ScenePlacement.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::macos::ScenePlacement {
namespace {

Rect drawn(const SceneNode& node) {
    const Point anchor = node.anchor.value_or(node.frame.center());
    const auto along = [&](double value, double fixed, double offset) {
        return fixed + (value - fixed) * node.scale + offset;
    };
    return {along(node.frame.x, anchor.x, node.offset().x),
            along(node.frame.y, anchor.y, node.offset().y), node.frame.width * node.scale,
            node.frame.height * node.scale};
}

double nearest(double pixel) {
    return std::floor(pixel + 0.5);
}

struct Placing {
    Rect rect;
    double scale = 1;

    Rect operator()(const GlassNode&) const { return snapped(rect, scale); }
    Rect operator()(const HandleNode&) const { return snapped(rect, scale); }
    Rect operator()(const DotNode&) const { return snappedAsWhole(rect, scale); }
    Rect operator()(const SeparatorNode&) const { return snappedAsWhole(rect, scale); }
    Rect operator()(const MarkNode&) const { return snappedAsWhole(rect, scale); }
    Rect operator()(const BadgeNode&) const { return snappedAsWhole(rect, scale); }
    Rect operator()(const ProgressNode&) const { return snappedAsWhole(rect, scale); }
    Rect operator()(const LabelNode&) const { return rect; }
    Rect operator()(const ImageNode& image) const {
        constexpr double tolerance = 1.0 / 64;
        const double side = std::max(rect.width, rect.height);
        const bool isAtRest = std::abs(side - image.restingSide) < tolerance;
        return isAtRest ? snappedAsWhole(rect, scale) : rect;
    }
};

}

Rect snapped(const Rect& rect, double scale) {
    const double left = nearest(rect.minX() * scale);
    const double top = nearest(rect.minY() * scale);
    const double width = std::max(1.0, nearest(rect.maxX() * scale) - left);
    const double height = std::max(1.0, nearest(rect.maxY() * scale) - top);
    return {left / scale, top / scale, width / scale, height / scale};
}

Rect snappedAsWhole(const Rect& rect, double scale) {
    const double width = std::max(1.0, nearest(rect.width * scale));
    const double height = std::max(1.0, nearest(rect.height * scale));
    return {nearest(rect.midX() * scale - width / 2) / scale,
            nearest(rect.midY() * scale - height / 2) / scale, width / scale, height / scale};
}

Rect frame(const SceneNode& node, double scale) {
    return std::visit(Placing{drawn(node), scale}, node.content);
}

double cornerRadius(double asked, Size size) {
    return std::clamp(asked, 0.0, std::max(0.0, std::min(size.width, size.height) / 2));
}

Rect capsule(const Rect& room, Size text, Size padding, double scale) {
    const double width = std::min(room.width, std::ceil(text.width) + 2 * padding.width);
    const double height = std::min(room.height, std::ceil(text.height) + 2 * padding.height);
    return snappedAsWhole({room.midX() - width / 2, room.midY() - height / 2, width, height},
                          scale);
}

double imageScale(Size image, double side, double scale) {
    const double own = std::max(image.width, image.height);
    constexpr double most = 8;
    return own > 0 ? std::clamp(side / own, 1.0, most) * scale : scale;
}

}
