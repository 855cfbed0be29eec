#include "Compositors/KWinPlacer.hpp"

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

/// A program takes a moment to draw the size that it was given, and until then KWin goes by the
/// size before.
Result<void> KWinPlacer::move(xdg::WindowID window, Point corner, double seconds) {
    const auto found = find(window);
    if (!found)
        return std::unexpected{found.error()};
    if (placed_ && placed_->window == window && placed_->before == *found) {
        const Size size = placed_->size;
        return connection_.run(
            KWinScripts::place(*found, {corner.x, corner.y, size.width, size.height}), seconds);
    }
    return connection_.run(KWinScripts::move(*found, corner), seconds);
}

Result<void> KWinPlacer::place(xdg::WindowID window, const Rect& frame, double seconds) {
    const auto found = find(window);
    if (!found)
        return std::unexpected{found.error()};
    placed_ = {window, *found, frame.size()};
    return connection_.run(KWinScripts::place(*found, frame), seconds);
}

Result<KWinWindow> KWinPlacer::find(xdg::WindowID window) const {
    auto found = list_.details(window);
    if (!found)
        return std::unexpected{PlatformError{ENOENT, "the window is gone"}};
    return *std::move(found);
}

}
