/// The translucent background of docks and labels: a slope of colours with round corners, a dark
/// line around it and a light one inside that.
#pragma once

#include "Painting/Pixels.hpp"

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace vireline::x11 {

struct GlassLook {
    /// Pixels; no more than half of either side counts.
    double radius = 0;
    /// How thick the fine lines are, in pixels.
    double line = 1;
    /// From top to bottom.
    QColor top;
    QColor bottom;
    QColor outline;
    QColor highlightTop;
    QColor highlightBottom;

    bool operator==(const GlassLook&) const = default;
};

namespace Glass {

/// A rectangle with corners as round as they can be, up to `radius`.
[[nodiscard]] QPainterPath roundedPath(const QRectF& rect, double radius);

void draw(QPainter& painter, const QRect& rect, const GlassLook& look);

}

/// Draws glass again and again, of a length that changes all the time, from one picture.
class GlassPainter {
public:
    /// `alpha` is of 255.
    void lay(const Canvas& canvas, const QRect& rect, const GlassLook& look, int alpha,
             const QRect& clip);
    /// In place of what is there.
    void put(const Canvas& canvas, const QRect& rect, const GlassLook& look, const QRect& clip);

private:
    void render(QSize size, const GlassLook& look);
    /// Calls `draw` with each piece of the picture that the glass is made of.
    template <class Draw>
    void forEachPiece(const QRect& rect, const GlassLook& look, const Draw& draw);

    GlassLook look_;
    /// Both ends, and between them a piece that is repeated for as long as the glass is.
    QImage picture_;
};

}
