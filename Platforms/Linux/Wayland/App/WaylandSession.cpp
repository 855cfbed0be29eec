#include "App/WaylandSession.hpp"

#include "Connection/WaylandConnection.hpp"
#include "Foundation/DevLog.hpp"

#include <wayland-client.h>

#include <QDir>
#include <QLibraryInfo>
#include <cstdio>
#include <cstdlib>
#include <mutex>

namespace vireline::wayland {

CompositorOffer CompositorOffer::of(wl_display* display) {
    const WaylandConnection connection{display};
    const auto has = [&](const char* interface) { return connection.offered(interface) > 0; };
    return {.hasLayerShell = has("zwlr_layer_shell_v1") && has("xdg_wm_base"),
            .listsWindows =
                has("zwlr_foreign_toplevel_manager_v1") || has("org_kde_plasma_window_management"),
            // No other compositor has that interface, and KWin offers it to all programs.
            .isKWin = has("org_kde_plasma_shell")};
}

namespace {

/// Qt ends the process right after saying that the connection is broken, with a status that depends
/// on its version, so this does it first. Several of its threads may say so at the same time; the
/// others wait here.
void report(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    static std::once_flag isOver;
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
    if (!text.startsWith(QLatin1StringView{"The Wayland connection"}))
        return;
    std::call_once(isOver, [] {
        DevLog::write("the Wayland compositor has ended the connection, quitting");
        std::fflush(nullptr);
        std::_Exit(EXIT_FAILURE);
    });
}

}

WaylandSession::WaylandSession() {
    qInstallMessageHandler(report);
    // Windows with that hint get no role from Qt, so that they can have one of ours.
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
    // Otherwise Qt believes that every window is in the corner of its display.
    qputenv("QT_WAYLAND_DISABLE_FIXED_POSITIONS", "1");
}

std::optional<CompositorOffer> WaylandSession::offer() {
    // Without a name, the library would try a usual one.
    if (std::getenv("WAYLAND_DISPLAY") == nullptr)
        return std::nullopt;
    const Proxy<wl_display> display{wl_display_connect(nullptr)};
    if (!display)
        return std::nullopt;
    return CompositorOffer::of(display.get());
}

bool WaylandSession::hasPlugin() {
    const QDir plugins{QLibraryInfo::path(QLibraryInfo::PluginsPath) + QLatin1String("/platforms")};
    return !plugins.entryList({QStringLiteral("libqwayland*.so")}, QDir::Files).isEmpty();
}

}
