/// A complete in-memory platform with a virtual clock. Its ports record requests, and let a test
/// cause events and failures.
#pragma once

#include "Platform/Platform.hpp"
#include "Support/FakeAccessibility.hpp"
#include "Support/FakeApplications.hpp"
#include "Support/FakeFiles.hpp"
#include "Support/FakePanelWindows.hpp"
#include "Support/FakeProgramWindows.hpp"
#include "Support/FakeRunLoop.hpp"

#include <initializer_list>
#include <string>

namespace vireline::test {

class FakePlatform {
public:
    [[nodiscard]] Platform ports();

    /// Creates an app's bundle on disk and adds it to the catalog.
    AppRef install(const std::string& bundleID, const std::string& name);

    /// Pins the apps in the desktop's own dock, in this order.
    void pin(std::initializer_list<AppRef> apps);

    /// A regular app, running from where it is installed, that has not been launched yet.
    [[nodiscard]] static RunningApplication instanceOf(const AppRef& app,
                                                       std::int32_t processIdentifier = 100);

    FakeRunLoop runLoop;
    FakeFileSystem fileSystem;
    FakeFileEvents fileEvents{fileSystem};
    FakeUserFolders userFolders;
    FakeTrash trash;
    FakeDockPreferences dockPreferences;
    FakeApplicationCatalog catalog;
    FakeRunningApplications running;
    FakeWorkspace workspace;
    FakeIcons icons;
    FakeScreens screens;
    FakePanelWindows panelWindows;
    FakePointerSettings pointerSettings;
    FakeMotionSettings motionSettings;
    FakeAccessibility accessibility;
    FakePointerTaps pointerTaps;
    FakeStatusBar statusBar;
    FakeLoginItemService loginItem;
    FakeProgramWindows programWindows;
    FakeApplication application;
    FakeLauncherAnnouncements announcements;
    DesktopWords words;
};

/// A tile of "persistent-apps" in the format of the desktop's own dock; absent values are omitted.
[[nodiscard]] PropertyList dockTile(const std::string& urlText,
                                    const std::optional<std::string>& label = std::nullopt,
                                    const std::optional<std::string>& bundleID = std::nullopt);

}
