/// Where pixels of the root window are in Qt's coordinates: a screen's corner keeps its place in
/// pixels, inside it they scale.
#pragma once

#include <QPoint>
#include <QRect>
#include <QRectF>

class QScreen;

namespace vireline::x11 {

struct Display;

namespace QtCoordinates {

/// `screen` is Qt's of the display.
[[nodiscard]] QPoint position(const QScreen& screen, const Display& display, QPointF rootPixel);

/// Never without area.
[[nodiscard]] QRect rect(const QScreen& screen, const Display& display, const QRectF& rootPixels);

}
}
