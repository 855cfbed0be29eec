/// All ports of one platform, as the application delegate receives them.
#pragma once

#include "Platform/Desktop/DesktopWords.hpp"

namespace vireline {

class Accessibility;
class Application;
class ApplicationCatalog;
class DockPreferences;
class FileEvents;
class FileSystem;
class Icons;
class LauncherAnnouncements;
class LoginItemService;
class MotionSettings;
class PanelWindows;
class PointerSettings;
class PointerTaps;
class ProgramWindows;
class RunLoop;
class RunningApplications;
class Screens;
class StatusBar;
class Trash;
class UserFolders;
class Workspace;

/// References to objects that outlive the kit's, and this desktop's words for the texts.
struct Platform {
    Application& application;
    RunLoop& runLoop;
    FileSystem& fileSystem;
    FileEvents& fileEvents;
    UserFolders& userFolders;
    Trash& trash;
    DockPreferences& dockPreferences;
    ApplicationCatalog& catalog;
    RunningApplications& runningApplications;
    Workspace& workspace;
    Icons& icons;
    Screens& screens;
    PanelWindows& panelWindows;
    PointerSettings& pointerSettings;
    MotionSettings& motionSettings;
    Accessibility& accessibility;
    PointerTaps& pointerTaps;
    StatusBar& statusBar;
    LoginItemService& loginItemService;
    ProgramWindows& programWindows;
    DesktopWords words{};
    /// Null where apps cannot announce anything.
    LauncherAnnouncements* launcherAnnouncements = nullptr;
};

}
