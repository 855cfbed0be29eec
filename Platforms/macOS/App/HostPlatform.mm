#include "App/HostPlatform.hpp"

#include "App/AppKitApplication.hpp"
#include "App/MacMotionSettings.hpp"
#include "App/MacPointerSettings.hpp"
#include "App/MainRunLoop.hpp"
#include "Applications/MacWorkspace.hpp"
#include "Applications/WorkspaceApplications.hpp"
#include "Applications/WorkspaceCatalog.hpp"
#include "ClientWindows/AXAccessibility.hpp"
#include "ClientWindows/EventTaps.hpp"
#include "Desktop/CFDockPreferences.hpp"
#include "Displays/MacScreens.hpp"
#include "Files/DispatchFileEvents.hpp"
#include "Files/FoundationFileSystem.hpp"
#include "Files/FoundationTrash.hpp"
#include "Files/FoundationUserFolders.hpp"
#include "Icons/WorkspaceIcons.hpp"
#include "Panels/MacPanelWindows.hpp"
#include "ProgramWindows/MacProgramWindows.hpp"
#include "Session/MainAppLoginItem.hpp"
#include "StatusBar/MenuBar.hpp"

#include <csignal>
#include <utility>

namespace vireline {

struct HostPlatform::Parts {
    macos::AppKitApplication application;
    macos::MainRunLoop runLoop;
    macos::FoundationFileSystem fileSystem;
    macos::DispatchFileEvents fileEvents;
    macos::FoundationUserFolders userFolders;
    macos::FoundationTrash trash;
    macos::CFDockPreferences dockPreferences;
    macos::WorkspaceCatalog catalog;
    macos::WorkspaceApplications runningApplications;
    macos::MacWorkspace workspace;
    macos::WorkspaceIcons icons;
    macos::MacScreens screens;
    macos::MacPanelWindows panelWindows;
    macos::MacPointerSettings pointerSettings;
    macos::MacMotionSettings motionSettings;
    macos::AXAccessibility accessibility;
    macos::EventTaps pointerTaps;
    macos::MenuBar statusBar;
    macos::MainAppLoginItem loginItemService;
    macos::MacProgramWindows programWindows;
};

std::expected<std::unique_ptr<HostPlatform>, HostPlatform::ExitStatus> HostPlatform::start() {
    // Writing to a closed pipe, for example when the terminal that shows the log was closed, must
    // not end the program.
    std::signal(SIGPIPE, SIG_IGN);
    return std::unique_ptr<HostPlatform>{new HostPlatform{std::make_unique<Parts>()}};
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
            .loginItemService = parts_->loginItemService,
            .programWindows = parts_->programWindows};
}

}
