/// What the interfaces of one dock share; it outlives them.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Panels/Accessible/AccessibleEvents.hpp"

#include <QAccessible>
#include <QRect>
#include <functional>
#include <string>

class QWindow;

namespace vireline {
class PanelWindowListener;
}

namespace vireline::x11 {

struct DockAccess {
    QWindow& window;
    PanelWindowListener& listener;
    /// What the dock is called; tells it from the docks of other displays.
    std::string name;
    /// Where a part of the view is on the screen, in Qt's coordinates.
    std::function<QRect(const Rect&)> place;
    /// Takes what assistive technology is to be told; only while there is any.
    std::function<void(QAccessibleInterface& about, QAccessible::Event what)> tell =
        AccessibleEvents::tell;
};

}
