/// Everything on a freedesktop.org desktop that is the same under every window system: owns those
/// adapters and creates them in dependency order.
#pragma once

#include "Applications/BusAnnouncements.hpp"
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/DesktopRunningApplications.hpp"
#include "Applications/GioWorkspace.hpp"
#include "Desktop/Pinned/DesktopDockPreferences.hpp"
#include "Desktop/SettingsDaemon.hpp"
#include "Files/GioTrash.hpp"
#include "Files/PosixFileSystem.hpp"
#include "Files/Watching/InotifyFileEvents.hpp"
#include "Files/XdgUserFolders.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Icons/ThemeIcons.hpp"
#include "Icons/Themes/IconThemeWatch.hpp"
#include "Platform/Applications/Accessibility.hpp"
#include "Platform/PanelWindow.hpp"
#include "Platform/Platform.hpp"
#include "ProgramWindows/QtProgramWindows.hpp"
#include "ProgramWindows/Style/Symbols.hpp"
#include "Session/AutostartLoginItem.hpp"
#include "StatusBar/TrayStatusBar.hpp"
#include "Toolkit/Appearance.hpp"
#include "Toolkit/DesktopMotionSettings.hpp"
#include "Toolkit/QtApplication.hpp"
#include "Toolkit/QtPointerSettings.hpp"

#include <memory>

namespace vireline::xdg {

class WindowSystem;

class DesktopPlatform : private NonCopyable {
public:
    /// The arguments must outlive this object.
    DesktopPlatform(QApplication& qt, RunLoop& runLoop, WindowSystem& windowSystem);

    [[nodiscard]] Platform ports();

private:
    // Each may use those above it.
    RunLoop& runLoop_;
    WindowSystem& windowSystem_;
    QtApplication application_;
    QtPointerSettings pointerSettings_;
    PosixFileSystem fileSystem_;
    InotifyFileEvents fileEvents_;
    XdgUserFolders userFolders_;
    GioTrash trash_;
    DesktopSettings settings_;
    DesktopMotionSettings motionSettings_;
    Appearance appearance_;
    DesktopEntryCatalog catalog_;
    BusAnnouncements announcements_;
    DesktopRunningApplications runningApplications_;
    GioWorkspace workspace_;
    DesktopDockPreferences dockPreferences_;
    IconThemeWatch themeWatch_;
    /// The theme in use at start-up, loaded once and shared by the app icons and the symbols.
    std::shared_ptr<const IconTheme> theme_;
    ThemeIcons icons_;
    std::unique_ptr<PanelWindows> panelWindows_;
    std::unique_ptr<Accessibility> accessibility_;
    Symbols symbols_;
    TrayStatusBar statusBar_;
    AutostartLoginItem loginItem_;
    QtProgramWindows programWindows_;
};

}
