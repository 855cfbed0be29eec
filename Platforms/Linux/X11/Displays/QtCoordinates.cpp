#include "Displays/QtCoordinates.hpp"

#include "Displays/DisplayGeometry.hpp"

#include <QScreen>

namespace vireline::x11::QtCoordinates {

QPoint position(const QScreen& screen, const Display& display, QPointF rootPixel) {
    const QPointF inside = rootPixel - QPointF(display.pixels.x, display.pixels.y);
    return (screen.geometry().topLeft() + inside / screen.devicePixelRatio()).toPoint();
}

QRect rect(const QScreen& screen, const Display& display, const QRectF& rootPixels) {
    const QSizeF size = rootPixels.size() / screen.devicePixelRatio();
    return {position(screen, display, rootPixels.topLeft()), size.toSize().expandedTo({1, 1})};
}

}
