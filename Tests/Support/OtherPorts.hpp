/// A platform with some ports replaced by a test.
#pragma once

#include "Platform/Platform.hpp"

namespace vireline::test {

/// Null for the platform's own.
struct OtherPorts {
    Application* application = nullptr;
    RunLoop* runLoop = nullptr;
    FileSystem* fileSystem = nullptr;
    FileEvents* fileEvents = nullptr;
    UserFolders* userFolders = nullptr;
    Trash* trash = nullptr;
    DockPreferences* dockPreferences = nullptr;
    ApplicationCatalog* catalog = nullptr;
    RunningApplications* runningApplications = nullptr;
    Workspace* workspace = nullptr;
    Icons* icons = nullptr;
    Screens* screens = nullptr;
    PanelWindows* panelWindows = nullptr;
    PointerSettings* pointerSettings = nullptr;
    MotionSettings* motionSettings = nullptr;
    Accessibility* accessibility = nullptr;
    PointerTaps* pointerTaps = nullptr;
    StatusBar* statusBar = nullptr;
    LoginItemService* loginItemService = nullptr;
    ProgramWindows* programWindows = nullptr;
};

[[nodiscard]] Platform with(const OtherPorts& others, const Platform& platform);

}
