#include "App/X11WindowSystem.hpp"

#include "ClientWindows/EwmhAccessibility.hpp"
#include "Displays/MenuPlacement.hpp"
#include "Panels/QtPanelWindows.hpp"
#include "StatusBar/TrayManager.hpp"

#include <QWindow>
#include <array>
#include <cstdint>

namespace vireline::x11 {

X11WindowSystem::X11WindowSystem(xdg::SecondStarts& secondStarts, RunLoop& runLoop)
    : secondStarts_(secondStarts), runLoop_(runLoop) {}

std::unique_ptr<PanelWindows> X11WindowSystem::makePanelWindows(xdg::Appearance& appearance) {
    return std::make_unique<QtPanelWindows>(connection_, screens_, appearance);
}

std::unique_ptr<Accessibility>
X11WindowSystem::makeAccessibility(xdg::DesktopRunningApplications& applications) {
    return std::make_unique<EwmhAccessibility>(connection_, runLoop_, applications, screens_);
}

std::unique_ptr<xdg::SystemTray> X11WindowSystem::makeTray() {
    return std::make_unique<TrayManager>(connection_);
}

void X11WindowSystem::openAtPointer(QMenu& menu) {
    MenuPlacement::openAtPointer(menu);
}

/// Sent as a pager would: the user has asked for this window, but perhaps not by a click in one of
/// our windows.
void X11WindowSystem::bringToFront(const X11Connection& connection, const QWindow& window) {
    constexpr std::uint32_t pager = 2;
    connection.sendToRoot(static_cast<xcb_window_t>(window.winId()), "_NET_ACTIVE_WINDOW",
                          std::array<std::uint32_t, 3>{pager, connection.userTime(), 0});
    connection.flush();
}

}
