#include "App/DesktopPlatform.hpp"

#include "Desktop/DesktopNames.hpp"
#include "Desktop/LinuxWords.hpp"
#include "Icons/Themes/ChosenIconTheme.hpp"
#include "Platform/Desktop/PointerTap.hpp"
#include "Platform/Desktop/Screens.hpp"
#include "WindowSystem/WindowSystem.hpp"

#include <string>
#include <utility>

namespace vireline::xdg {
namespace {

std::shared_ptr<const IconTheme> themeNamed(const std::string& name) {
    return std::make_shared<const IconTheme>(IconTheme::userFolders(), name);
}

std::string widgetTheme(const DesktopSettings& settings) {
    const auto name = settings.texts.find("Net/ThemeName");
    return name == settings.texts.end() ? std::string{} : name->second;
}

}

DesktopPlatform::DesktopPlatform(QApplication& qt, RunLoop& runLoop, WindowSystem& windowSystem)
    : runLoop_(runLoop)
    , windowSystem_(windowSystem)
    , application_(qt, windowSystem.secondStarts())
    , settings_(windowSystem.settings().read())
    , motionSettings_(settings_.numbers)
    , appearance_(widgetTheme(settings_))
    , catalog_(runLoop)
    , announcements_(catalog_)
    , runningApplications_(windowSystem.windows(), windowSystem.startupNotices(), runLoop, catalog_)
    , workspace_(windowSystem.startupNotices(), catalog_, runningApplications_, userFolders_,
                 pointerSettings_)
    , dockPreferences_(
          {userFolders_.home(), userFolders_.configHome(), DesktopNames::current(), {}},
          fileSystem_, catalog_)
    , themeWatch_(windowSystem.settings(), runLoop,
                  {IconTheme::userFolders(), ChosenIconTheme::userFiles()})
    , theme_(themeNamed(themeWatch_.name()))
    , icons_(catalog_, runningApplications_, theme_)
    , panelWindows_(windowSystem.makePanelWindows(appearance_))
    , accessibility_(windowSystem.makeAccessibility(runningApplications_))
    , symbols_(*theme_)
    , statusBar_(
          {.makeTray = [&windowSystem] { return windowSystem.makeTray(); },
           .openAtPointer = [&windowSystem](QMenu& menu) { windowSystem.openAtPointer(menu); },
           .appearance = appearance_,
           .symbols = symbols_,
           .theme = *theme_})
    , loginItem_(fileSystem_, {userFolders_.configHome(), AutostartLoginItem::ownPath(),
                               DesktopNames::current()})
    , programWindows_(
          {.bringToFront = [&windowSystem](QWindow& window) { windowSystem.bringToFront(window); },
           .application = application_,
           .appearance = appearance_,
           .symbols = symbols_,
           .motionSettings = motionSettings_}) {
    themeWatch_.onChange = [this] { icons_.setTheme(themeNamed(themeWatch_.name())); };
    catalog_.hasIcon = [this](const std::string& icon) { return icons_.has(icon); };
}

Platform DesktopPlatform::ports() {
    DesktopWords words = linuxWords();
    windowSystem_.adapt(words);
    return {.application = application_,
            .runLoop = runLoop_,
            .fileSystem = fileSystem_,
            .fileEvents = fileEvents_,
            .userFolders = userFolders_,
            .trash = trash_,
            .dockPreferences = dockPreferences_,
            .catalog = catalog_,
            .runningApplications = runningApplications_,
            .workspace = workspace_,
            .icons = icons_,
            .screens = windowSystem_.screens(),
            .panelWindows = *panelWindows_,
            .pointerSettings = pointerSettings_,
            .motionSettings = motionSettings_,
            .accessibility = *accessibility_,
            .pointerTaps = windowSystem_.pointerTaps(),
            .statusBar = statusBar_,
            .loginItemService = loginItem_,
            .programWindows = programWindows_,
            .words = std::move(words),
            .launcherAnnouncements = &announcements_};
}

}
