/// From a view's points to the pixels of the window that hosts it. What is drawn sharp lies on
/// whole pixels; this is the one place that says which.
#pragma once

#include "Presentation/Scene.hpp"

#include <QRect>
#include <QRectF>
#include <vector>

namespace vireline::x11 {

struct ViewMapping {
    /// The view's top-left corner in the window, in pixels.
    QPoint origin;
    /// Pixels per point.
    double scale = 1;

    bool operator==(const ViewMapping&) const = default;

    [[nodiscard]] QRectF pixels(const Rect& view) const;
    /// Those pixels that a pointer in the rectangle points to.
    [[nodiscard]] QRect pixelsIn(const Rect& view) const;
    [[nodiscard]] Point toView(QPointF pixels) const;
    [[nodiscard]] QPointF toPixels(Point view) const;
};

/// A node as it comes to lie on the window: nodes of equal content that are placed alike look
/// alike.
struct PlacedNode {
    /// Pixels. Whole ones for all that is drawn sharp; an image that has grown or shrunk lies
    /// between them, so as to move smoothly.
    QRectF rect;
    bool isSharp = true;
    /// Pixels a point for lengths inside of it.
    double scale = 1;
    /// Of 255.
    int alpha = 255;

    bool operator==(const PlacedNode&) const = default;

    /// All pixels that painting it can touch.
    [[nodiscard]] QRect touched() const;
};

namespace ViewMappings {

[[nodiscard]] PlacedNode placed(const SceneNode& node, const ViewMapping& mapping);
/// All of them, in their order, in place of what `places` held.
void place(std::vector<PlacedNode>& places, const Scene& scene, const ViewMapping& mapping);

/// The nearest whole pixels edge by edge, never without area.
[[nodiscard]] QRect snapped(const QRectF& rect);

/// At the nearest whole pixel with the nearest whole size, so that equal things stay equal wherever
/// they lie. Never without area.
[[nodiscard]] QRect snappedAsWhole(const QRectF& rect);

}
}
