/// Converts pixels of the root window to Qt's coordinates, in which a screen's corner keeps its
/// position in pixels while positions inside the screen are scaled.
#pragma once

#include <QPoint>
#include <QRect>
#include <QRectF>

class QScreen;

namespace vireline::x11 {

struct Display;

namespace QtCoordinates {

/// `screen` must be Qt's screen for `display`.
[[nodiscard]] QPoint position(const QScreen& screen, const Display& display, QPointF rootPixel);

/// Never empty.
[[nodiscard]] QRect rect(const QScreen& screen, const Display& display, const QRectF& rootPixels);

}
}
