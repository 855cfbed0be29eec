#include "ProgramWindows/Controls/Painting.hpp"

#include <QPalette>

namespace vireline::xdg::Painting {

bool showsFocus(const QWidget& widget) {
    return widget.hasFocus() && widget.window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void ring(QPainter& painter, const QWidget& widget, const QRectF& shape, double radius) {
    constexpr double distance = 2.5;
    constexpr double thickness = 2;
    const QRectF path = shape.adjusted(-distance, -distance, distance, distance);
    painter.setBrush(Qt::NoBrush);
    painter.setPen({widget.palette().color(QPalette::Highlight), thickness});
    painter.drawRoundedRect(path, radius + distance, radius + distance);
}

void fill(QPainter& painter, const QRectF& shape, double radius, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(shape, radius, radius);
}

void outline(QPainter& painter, const QRectF& shape, double radius, const QColor& colour) {
    const double pixel = 1.0 / painter.device()->devicePixelRatioF();
    const double half = pixel / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen({colour, pixel});
    painter.drawRoundedRect(shape.adjusted(half, half, -half, -half), radius - half, radius - half);
}

}
