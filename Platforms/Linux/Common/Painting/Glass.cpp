#include "Painting/Glass.hpp"

#include <QLinearGradient>
#include <algorithm>
#include <cmath>

namespace vireline::xdg {
namespace {

/// Width of the repeated middle piece; pixels.
constexpr int pieceWidth = 128;

/// Strokes a line along the inside of the rectangle, `inset` pixels from its edge.
void drawRing(QPainter& painter, const QRectF& rect, double radius, double inset, double width,
              const QBrush& brush) {
    const double middle = inset + width / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen{brush, width});
    painter.drawPath(
        Glass::roundedPath(rect.adjusted(middle, middle, -middle, -middle), radius - middle));
}

QLinearGradient downwards(const QRectF& rect, const QColor& top, const QColor& bottom) {
    QLinearGradient gradient{rect.topLeft(), rect.bottomLeft()};
    gradient.setColorAt(0, top);
    gradient.setColorAt(1, bottom);
    return gradient;
}

}

QPainterPath Glass::roundedPath(const QRectF& rect, double radius) {
    const double most = std::min(rect.width(), rect.height()) / 2;
    const double r = std::clamp(radius, 0.0, most);
    QPainterPath path;
    path.addRoundedRect(rect, r, r);
    return path;
}

void Glass::draw(QPainter& painter, const QRect& rect, const GlassLook& look) {
    const QRectF area{rect};
    painter.fillPath(roundedPath(area, look.radius), downwards(area, look.top, look.bottom));
    drawRing(painter, area, look.radius, 0, look.line, look.outline);
    drawRing(painter, area, look.radius, look.line, look.line,
             downwards(area, look.highlightTop, look.highlightBottom));
}

template <class Draw>
void GlassPainter::forEachPiece(const QRect& rect, const GlassLook& look, const Draw& draw) {
    const int end = static_cast<int>(std::ceil(look.radius)) + 1;
    const int longest = 2 * end + pieceWidth;
    const QSize size{std::min(rect.width(), longest), rect.height()};
    if (picture_.size() != size || look_ != look)
        render(size, look);
    const Picture picture = Pixels::picture(picture_);
    const auto drawPiece = [&](int x, int width, int from) {
        draw(Pixels::Piece{picture, {from, 0, width, rect.height()}, {x, rect.top()}});
    };
    if (size.width() < longest)
        return drawPiece(rect.left(), size.width(), 0);
    const int farEnd = rect.left() + rect.width() - end;
    drawPiece(rect.left(), end, 0);
    for (int x = rect.left() + end; x < farEnd; x += pieceWidth)
        drawPiece(x, std::min(pieceWidth, farEnd - x), end);
    drawPiece(farEnd, end, end + pieceWidth);
}

void GlassPainter::blend(const Canvas& canvas, const QRect& rect, const GlassLook& look, int alpha,
                         const QRect& clip) {
    forEachPiece(rect, look,
                 [&](const Pixels::Piece& piece) { Pixels::blend(canvas, piece, alpha, clip); });
}

void GlassPainter::copy(const Canvas& canvas, const QRect& rect, const GlassLook& look,
                        const QRect& clip) {
    forEachPiece(rect, look,
                 [&](const Pixels::Piece& piece) { Pixels::copy(canvas, piece, clip); });
}

void GlassPainter::render(QSize size, const GlassLook& look) {
    look_ = look;
    picture_ = QImage{size, QImage::Format_ARGB32_Premultiplied};
    picture_.fill(Qt::transparent);
    QPainter painter{&picture_};
    painter.setRenderHint(QPainter::Antialiasing);
    Glass::draw(painter, picture_.rect(), look);
}

}
