#include "App/WaylandWindowSystem.hpp"

#include "Connection/QtNative.hpp"
#include "Panels/LayerPanelWindows.hpp"
#include "StatusBar/SystemTray.hpp"

#include <QCursor>
#include <QMenu>
#include <QWindow>

namespace vireline::wayland {

WaylandWindowSystem::WaylandWindowSystem(RunLoop& /*runLoop*/) : connection_(QtNative::display()) {}

std::unique_ptr<PanelWindows> WaylandWindowSystem::makePanelWindows(xdg::Appearance& appearance) {
    return std::make_unique<LayerPanelWindows>(connection_, screens_, appearance);
}

std::unique_ptr<Accessibility>
WaylandWindowSystem::makeAccessibility(xdg::DesktopRunningApplications& /*applications*/) {
    return std::make_unique<NoAccessibility>();
}

/// Wayland has none: status items are on the session bus.
std::unique_ptr<xdg::SystemTray> WaylandWindowSystem::makeTray() {
    return nullptr;
}

/// Only for panels that show the menu of a status item by themselves in no way.
void WaylandWindowSystem::openAtPointer(QMenu& menu) {
    menu.popup(QCursor::pos());
}

/// Qt asks the compositor with the token of the user's last action.
void WaylandWindowSystem::bringToFront(QWindow& window) {
    window.raise();
    window.requestActivate();
}

}
