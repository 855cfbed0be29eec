/// Maps a view's points to pixels of its window. Whatever is drawn sharp lies on whole pixels; this
/// is the one place that rounds to them.
#pragma once

#include "Presentation/Scene.hpp"

#include <QRect>
#include <QRectF>
#include <vector>

namespace vireline::xdg {

struct ViewMapping {
    /// The view's top-left corner in the window, in pixels.
    QPoint origin;
    /// Pixels per point.
    double scale = 1;

    bool operator==(const ViewMapping&) const = default;

    [[nodiscard]] QRectF pixels(const Rect& view) const;
    /// The pixels at which the pointer counts as being in the rectangle.
    [[nodiscard]] QRect pixelsIn(const Rect& view) const;
    [[nodiscard]] Point toView(QPointF pixels) const;
    [[nodiscard]] QPointF toPixels(Point view) const;
};

/// A node's position on the window: nodes with equal content and equal positions look identical.
struct PlacedNode {
    /// In pixels: whole ones for everything drawn sharp; fractional ones for a scaled image, so
    /// that it moves smoothly.
    QRectF rect;
    bool isSharp = true;
    /// Pixels per point for lengths inside it.
    double scale = 1;
    /// 0 to 255.
    int alpha = 255;

    bool operator==(const PlacedNode&) const = default;

    /// All pixels that painting it may change.
    [[nodiscard]] QRect touched() const;
};

namespace ViewMappings {

[[nodiscard]] PlacedNode placed(const SceneNode& node, const ViewMapping& mapping);
/// The positions of all nodes in order; replaces the content of `places`.
void place(std::vector<PlacedNode>& places, const Scene& scene, const ViewMapping& mapping);

/// Rounds each edge to whole pixels; never empty.
[[nodiscard]] QRect snapped(const QRectF& rect);

/// Rounds size and position separately to whole pixels, so that equal shapes stay equal everywhere.
/// Never empty.
[[nodiscard]] QRect snappedAsWhole(const QRectF& rect);

}
}
