#include "VirtualDesktop/Compositors/CompositorStart.hpp"

#include "VirtualDesktop/Compositors/KWinSession.hpp"
#include "VirtualDesktop/Compositors/SwaySession.hpp"

namespace vireline::desktop {

std::unique_ptr<CompositorSession> startCompositor(const XClient& client,
                                                   const CompositorStart& start) {
    const auto folder = start.home.scratch() / shortName(start.compositor);
    if (start.compositor == WindowManager::sway)
        return std::make_unique<SwaySession>(client, start.display, folder, start.monitors,
                                             start.scales);
    if (!start.permitted.empty()) {
        start.home.installEntry("vireline", "[Desktop Entry]\nType=Application\nName=Vireline\n"
                                            "X-KDE-Wayland-Interfaces="
                                            "org_kde_plasma_window_management\nExec=" +
                                                start.permitted.string() + '\n');
    }
    return std::make_unique<KWinSession>(
        client,
        KWinProcess::Options{.folder = folder,
                             .xDisplay = start.display,
                             .permitsEverything = false,
                             .dataFolders =
                                 start.home.entry("vireline").parent_path().parent_path(),
                             .bus = start.sessionBus},
        start.monitors);
}

}
