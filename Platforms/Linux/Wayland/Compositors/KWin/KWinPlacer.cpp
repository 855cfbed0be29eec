#include "Compositors/KWin/KWinPlacer.hpp"

#include "ClientWindows/PlasmaWindowList.hpp"

#include <cerrno>

namespace vireline::wayland {

KWinPlacer::KWinPlacer(const PlasmaWindowList& list, const KWinConnection::Connect& connect)
    : list_(list), connection_(connect) {}

Result<Rect> KWinPlacer::frame(xdg::WindowID window, double /*seconds*/) {
    const auto found = find(window);
    if (!found)
        return std::unexpected{found.error()};
    return found->frame;
}

Result<void> KWinPlacer::move(xdg::WindowID window, Point corner, double seconds) {
    const auto found = find(window);
    if (!found)
        return std::unexpected{found.error()};
    return connection_.run(KWinScripts::move(*found, corner), seconds);
}

Result<void> KWinPlacer::place(xdg::WindowID window, const Rect& frame, double seconds) {
    const auto found = find(window);
    if (!found)
        return std::unexpected{found.error()};
    return connection_.run(KWinScripts::place(*found, frame), seconds);
}

Result<KWinWindow> KWinPlacer::find(xdg::WindowID window) const {
    auto found = list_.details(window);
    if (!found)
        return std::unexpected{PlatformError{ENOENT, "the window is gone"}};
    return *std::move(found);
}

}
