#include "App/WaylandWindowSystem.hpp"

#include "ClientWindows/PlasmaWindowList.hpp"
#include "ClientWindows/WlrWindowList.hpp"
#include "Compositors/CompositorAccessibility.hpp"
#include "Compositors/KWin/KWinPlacer.hpp"
#include "Compositors/Sway/SwayPlacer.hpp"
#include "Compositors/Sway/SwayWindowList.hpp"
#include "Connection/QtNative.hpp"
#include "GLib/SessionBus.hpp"
#include "Panels/LayerPanelWindows.hpp"
#include "Panels/Menus/PointerMenu.hpp"
#include "StatusBar/SystemTray.hpp"

#include <unistd.h>

#include <QMenu>
#include <QWindow>
#include <utility>

namespace vireline::wayland {

namespace {

constexpr const char* ownAppID = "vireline";

std::unique_ptr<xdg::WindowList> windowList(const WaylandConnection& connection,
                                            const std::string& swaySocket) {
    if (auto windows = SwayWindowList::open(swaySocket, getpid()))
        return windows;
    if (auto windows = WlrWindowList::create(connection, ownAppID,
                                             [&connection] { return QtNative::seat(connection); }))
        return windows;
    if (auto windows = PlasmaWindowList::create(connection, ownAppID))
        return windows;
    return std::make_unique<NoWindows>();
}

/// Without it there are no docks; the compositor has probably just ended.
std::unique_ptr<OwnConnection> connect() {
    auto connection = OwnConnection::open();
    if (!connection)
        qFatal("The Wayland connection of the docks could not be made.");
    return connection;
}

}

WaylandWindowSystem::WaylandWindowSystem(xdg::SecondStarts& secondStarts, RunLoop& runLoop)
    : secondStarts_(secondStarts)
    , runLoop_(runLoop)
    , connection_(QtNative::display())
    , own_(connect())
    , swaySocket_(SwayConnection::socketOf(qEnvironmentVariable("SWAYSOCK").toStdString(),
                                           connection_.compositor()))
    , windows_(windowList(connection_, swaySocket_))
    , activationTokens_(own_->globals(), runLoop,
                        [this] { return InputProof{seat_.get(), seat_.lastPress()}; }) {}

WaylandWindowSystem::~WaylandWindowSystem() = default;

std::unique_ptr<PanelWindows> WaylandWindowSystem::makePanelWindows(xdg::Appearance& appearance) {
    return std::make_unique<LayerPanelWindows>(
        DockContext::Needs{connection_, *own_, seat_, screens_, appearance});
}

std::unique_ptr<Accessibility>
WaylandWindowSystem::makeAccessibility(xdg::DesktopRunningApplications& applications) {
    return std::make_unique<CompositorAccessibility>(placer(), applications, [this] {
        const QPoint corner = screens_.primary().topLeft();
        return Point{static_cast<double>(corner.x()), static_cast<double>(corner.y())};
    });
}

/// Null under compositors that move no windows.
std::unique_ptr<WindowPlacer> WaylandWindowSystem::placer() {
    if (!swaySocket_.empty())
        return std::make_unique<SwayPlacer>(swaySocket_, runLoop_);
    if (const auto* const plasma = dynamic_cast<const PlasmaWindowList*>(windows_.get()))
        return std::make_unique<KWinPlacer>(*plasma, xdg::SessionBus::connect);
    return nullptr;
}

/// Wayland has none: status items are on the session bus.
std::unique_ptr<xdg::SystemTray> WaylandWindowSystem::makeTray() {
    return nullptr;
}

/// Needed only if a panel cannot show the menu of a status item itself.
void WaylandWindowSystem::openAtPointer(QMenu& menu) {
    pointerMenu_.reset();
    pointerMenu_ =
        std::make_unique<PointerMenu>(connection_, menu, [this] { pointerMenu_.reset(); });
}

/// Qt asks the compositor with the token of the user's last action.
void WaylandWindowSystem::bringToFront(QWindow& window) {
    window.raise();
    window.requestActivate();
}

}
