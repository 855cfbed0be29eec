/// What the controls of the program's windows have in common when they paint.
#pragma once

#include <QPainter>
#include <QRectF>
#include <QWidget>

namespace vireline::x11 {

/// Paints a control, without jagged edges.
class SmoothPainter : public QPainter {
public:
    explicit SmoothPainter(QWidget& widget) : QPainter(&widget) { setRenderHint(Antialiasing); }
};

namespace Painting {

/// What a control leaves free around itself for the ring that shows its focus; points.
inline constexpr int ringRoom = 4;

/// Whether the control has the focus and the user is on the keyboard.
[[nodiscard]] bool showsFocus(const QWidget& widget);

/// A ring around the control's shape.
void ring(QPainter& painter, const QWidget& widget, const QRectF& shape, double radius);

/// Filled, without an outline.
void fill(QPainter& painter, const QRectF& shape, double radius, const QColor& colour);

/// A line one pixel wide inside the shape's edge.
void outline(QPainter& painter, const QRectF& shape, double radius, const QColor& colour);

}
}
