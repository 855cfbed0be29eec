#include "Support/OtherPorts.hpp"

namespace vireline::test {

Platform with(const OtherPorts& others, const Platform& platform) {
    const auto either = []<class Port>(Port* other, Port& own) -> Port& {
        return other != nullptr ? *other : own;
    };
    return {
        .application = either(others.application, platform.application),
        .runLoop = either(others.runLoop, platform.runLoop),
        .fileSystem = either(others.fileSystem, platform.fileSystem),
        .fileEvents = either(others.fileEvents, platform.fileEvents),
        .userFolders = either(others.userFolders, platform.userFolders),
        .trash = either(others.trash, platform.trash),
        .dockPreferences = either(others.dockPreferences, platform.dockPreferences),
        .catalog = either(others.catalog, platform.catalog),
        .runningApplications = either(others.runningApplications, platform.runningApplications),
        .workspace = either(others.workspace, platform.workspace),
        .icons = either(others.icons, platform.icons),
        .screens = either(others.screens, platform.screens),
        .panelWindows = either(others.panelWindows, platform.panelWindows),
        .pointerSettings = either(others.pointerSettings, platform.pointerSettings),
        .motionSettings = either(others.motionSettings, platform.motionSettings),
        .accessibility = either(others.accessibility, platform.accessibility),
        .pointerTaps = either(others.pointerTaps, platform.pointerTaps),
        .statusBar = either(others.statusBar, platform.statusBar),
        .loginItemService = either(others.loginItemService, platform.loginItemService),
        .programWindows = either(others.programWindows, platform.programWindows),
        .words = platform.words,
        .launcherAnnouncements = platform.launcherAnnouncements,
    };
}

}
