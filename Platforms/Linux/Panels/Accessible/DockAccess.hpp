/// What the interfaces of one dock share; it outlives them.
#pragma once

#include "Foundation/Geometry.hpp"

#include <QRect>
#include <functional>

class QWindow;

namespace vireline {
class PanelWindowListener;
}

namespace vireline::x11 {

struct DockAccess {
    QWindow& window;
    PanelWindowListener& listener;
    /// Where a part of the view is on the screen, in Qt's coordinates.
    std::function<QRect(const Rect&)> place;
};

}
