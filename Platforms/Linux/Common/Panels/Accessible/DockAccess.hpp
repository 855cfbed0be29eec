/// State shared by the accessibility interfaces of one dock; must outlive them.
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

namespace vireline::xdg {

struct DockAccess {
    QWindow& window;
    PanelWindowListener& listener;
    /// The dock's accessible name, which distinguishes it from docks on other displays.
    std::string name;
    /// Converts a part of the view to Qt's screen coordinates.
    std::function<QRect(const Rect&)> place;
    /// Sends an accessibility event; called only while assistive technology is active.
    std::function<void(QAccessibleInterface& about, QAccessible::Event what)> notify =
        AccessibleEvents::notify;
    bool isShown = false;
};

}
