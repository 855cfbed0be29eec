#include "App/HostPlatform.hpp"

#include "App/DesktopMotionSettings.hpp"
#include "App/SingleInstance.hpp"
#include "App/XcbApplication.hpp"
#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/EwmhRunningApplications.hpp"
#include "Applications/GioWorkspace.hpp"
#include "ClientWindows/EwmhAccessibility.hpp"
#include "Desktop/DesktopDockPreferences.hpp"
#include "Desktop/DesktopNames.hpp"
#include "Desktop/LinuxWords.hpp"
#include "Displays/RandrScreens.hpp"
#include "Files/GioTrash.hpp"
#include "Files/InotifyFileEvents.hpp"
#include "Files/LogFile.hpp"
#include "Files/PosixFileSystem.hpp"
#include "Files/StartLog.hpp"
#include "Files/XdgUserFolders.hpp"
#include "Foundation/DevLog.hpp"
#include "GLib/BusProbe.hpp"
#include "Icons/ChosenIconTheme.hpp"
#include "Icons/IconThemeWatch.hpp"
#include "Icons/ThemeIcons.hpp"
#include "Icons/XSettings.hpp"
#include "Panels/QtPanelWindows.hpp"
#include "Pointer/XInputPointerTaps.hpp"
#include "ProgramWindows/QtProgramWindows.hpp"
#include "ProgramWindows/Symbols.hpp"
#include "Session/AutostartLoginItem.hpp"
#include "StatusBar/TrayStatusBar.hpp"
#include "Toolkit/QtApplication.hpp"
#include "Toolkit/QtPointerSettings.hpp"
#include "Toolkit/QtRunLoop.hpp"
#include "X11/X11Connection.hpp"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace vireline {
namespace {

using namespace x11;

std::shared_ptr<const IconTheme> themeNamed(const std::string& name) {
    return std::make_shared<const IconTheme>(IconTheme::userFolders(), name);
}

std::string widgetTheme(const XSettings::Texts& settings) {
    const auto name = settings.find("Net/ThemeName");
    return name == settings.end() ? std::string{} : name->second;
}

std::string currentDesktop() {
    const char* const name = std::getenv("XDG_CURRENT_DESKTOP");
    return name == nullptr ? std::string{} : name;
}

/// Must run before Qt starts, because Qt would wait for the bus. Returns whether the session bus
/// was hung.
bool unsetHungSessionBus() {
    constexpr unsigned int timeout = 1;
    if (BusProbe::answers(BusProbe::sessionAddress(), timeout))
        return false;
    BusProbe::hideSessionBus();
    return true;
}

}

/// Each part may use the parts declared above it.
struct HostPlatform::Parts {
    explicit Parts(std::unique_ptr<SingleInstance> claimed)
        : instance(std::move(claimed)), application(qt.qt(), *instance) {
        themeWatch.onChange = [this] { icons.setTheme(themeNamed(themeWatch.name())); };
        catalog.hasIcon = [this](const std::string& icon) { return icons.has(icon); };
    }

    std::unique_ptr<SingleInstance> instance;
    XcbApplication qt;
    QtApplication application;
    QtRunLoop runLoop;
    QtPointerSettings pointerSettings;
    PosixFileSystem fileSystem;
    InotifyFileEvents fileEvents;
    XdgUserFolders userFolders;
    GioTrash trash;
    X11Connection connection;
    XSettings::Values settings = XSettings::read(connection);
    DesktopMotionSettings motionSettings{settings.numbers};
    DesktopEntryCatalog catalog{runLoop};
    EwmhRunningApplications runningApplications{connection, runLoop, catalog};
    GioWorkspace workspace{connection, catalog, runningApplications, userFolders, pointerSettings};
    DesktopDockPreferences dockPreferences{
        {userFolders.home(), userFolders.configHome(), currentDesktop(), {}}, fileSystem, catalog};
    IconThemeWatch themeWatch{
        connection, runLoop, {IconTheme::userFolders(), ChosenIconTheme::userFiles()}};
    /// The theme in use at start-up, loaded once and shared by the app icons and the symbols.
    std::shared_ptr<const IconTheme> theme = themeNamed(themeWatch.name());
    ThemeIcons icons{catalog, runningApplications, theme};
    RandrScreens screens{connection};
    QtPanelWindows panelWindows{connection, screens, widgetTheme(settings.texts)};
    EwmhAccessibility accessibility{connection, runLoop, runningApplications, screens};
    XInputPointerTaps pointerTaps{screens};
    Symbols symbols{*theme};
    TrayStatusBar statusBar{{connection, panelWindows.appearance(), symbols, *theme}};
    AutostartLoginItem loginItem{
        fileSystem,
        {userFolders.configHome(), AutostartLoginItem::ownPath(), DesktopNames::current()}};
    QtProgramWindows programWindows{
        {connection, application, panelWindows.appearance(), symbols, motionSettings}};
};

std::expected<std::unique_ptr<HostPlatform>, HostPlatform::ExitStatus> HostPlatform::start() {
    auto server = XServer::connect();
    if (!server) {
        std::fprintf(stderr, "vireline: %s\n", server.error().description.c_str());
        return std::unexpected{EXIT_FAILURE};
    }
    auto instance = SingleInstance::claim(*std::move(server));
    if (!instance) {
        std::puts("Vireline is already running; asked it to show its settings.");
        return std::unexpected{EXIT_SUCCESS};
    }
    DevLog::setAppender(LogFile::append);
    const bool isBusHidden = unsetHungSessionBus();
    auto parts = std::make_unique<Parts>(std::move(instance));
    if (isBusHidden)
        logOnceStarted("session bus does not answer, going on without it");
    return std::unique_ptr<HostPlatform>{new HostPlatform{std::move(parts)}};
}

HostPlatform::HostPlatform(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {}

HostPlatform::~HostPlatform() = default;

Platform HostPlatform::ports() {
    return {.application = parts_->application,
            .runLoop = parts_->runLoop,
            .fileSystem = parts_->fileSystem,
            .fileEvents = parts_->fileEvents,
            .userFolders = parts_->userFolders,
            .trash = parts_->trash,
            .dockPreferences = parts_->dockPreferences,
            .catalog = parts_->catalog,
            .runningApplications = parts_->runningApplications,
            .workspace = parts_->workspace,
            .icons = parts_->icons,
            .screens = parts_->screens,
            .panelWindows = parts_->panelWindows,
            .pointerSettings = parts_->pointerSettings,
            .motionSettings = parts_->motionSettings,
            .accessibility = parts_->accessibility,
            .pointerTaps = parts_->pointerTaps,
            .statusBar = parts_->statusBar,
            .loginItemService = parts_->loginItem,
            .programWindows = parts_->programWindows,
            .words = linuxWords()};
}

}
