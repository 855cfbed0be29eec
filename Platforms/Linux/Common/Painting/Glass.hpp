/// The translucent background of docks and labels: a gradient with rounded corners, a dark outline
/// and a light line inside it.
#pragma once

#include "Painting/Pixels/Pixels.hpp"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace vireline::xdg {

struct GlassLook {
    /// Pixels; limited to half of the shorter side.
    double radius = 0;
    /// Thickness of the fine lines; pixels.
    double line = 1;
    /// Gradient from top to bottom.
    QColor top;
    QColor bottom;
    QColor outline;
    QColor highlightTop;
    QColor highlightBottom;

    bool operator==(const GlassLook&) const = default;
};

namespace Glass {

/// A rounded rectangle with corners of `radius`, or less if it is too small for that.
[[nodiscard]] QPainterPath roundedPath(const QRectF& rect, double radius);

void draw(QPainter& painter, const QRect& rect, const GlassLook& look);

}

/// Draws glass of ever-changing length from one cached image.
class GlassPainter {
public:
    /// Blends the glass over the canvas; `alpha` is 0 to 255.
    void blend(const Canvas& canvas, const QRect& rect, const GlassLook& look, int alpha,
               const QRect& clip);
    /// Draws the glass without blending.
    void copy(const Canvas& canvas, const QRect& rect, const GlassLook& look, const QRect& clip);

private:
    void render(QSize size, const GlassLook& look);
    /// Calls `draw` for each piece that the glass is assembled from.
    template <class Draw>
    void forEachPiece(const QRect& rect, const GlassLook& look, const Draw& draw);

    GlassLook look_;
    /// Both ends with a middle piece between them, which is repeated to fill the length.
    QImage picture_;
};

}
