/// Painting helpers shared by the controls of the program's windows.
#pragma once

#include <QPainter>
#include <QRectF>
#include <QWidget>

namespace vireline::xdg {

/// A painter with antialiasing.
class SmoothPainter : public QPainter {
public:
    explicit SmoothPainter(QWidget& widget) : QPainter(&widget) { setRenderHint(Antialiasing); }
};

namespace Painting {

/// Margin that a control leaves for its focus ring; points.
inline constexpr int ringRoom = 4;

/// Whether the control has the focus and the user is using the keyboard.
[[nodiscard]] bool showsFocus(const QWidget& widget);

/// Draws a focus ring around the control's shape.
void ring(QPainter& painter, const QWidget& widget, const QRectF& shape, double radius);

/// Fills a rounded rectangle without an outline.
void fill(QPainter& painter, const QRectF& shape, double radius, const QColor& colour);

/// Draws a line one pixel wide inside the shape's edge.
void outline(QPainter& painter, const QRectF& shape, double radius, const QColor& colour);

}
}
