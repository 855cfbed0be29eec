/// Where a menu goes that opens at a point, such as that of the pointer.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace vireline::xdg::MenuCorner {

/// The menu's top-left corner so that its nearest corner is at the point, if there is room for that
/// on the screen.
[[nodiscard]] QPoint at(QPoint point, QSize menu, const QRect& screen);

}
