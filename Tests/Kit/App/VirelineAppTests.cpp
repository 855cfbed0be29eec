#include "App/VirelineApp.hpp"
#include "Support/FakePlatform.hpp"
#include "Support/LoggedLines.hpp"

#include <gtest/gtest.h>

namespace vireline {
namespace {

// Behaviour: entry-1
TEST(VirelineApp, TheLogLiesInTheProgramsFolderOfTheFirstSupportFolder) {
    test::FakePlatform platform;
    platform.userFolders.applicationSupportFolders = {FileURL::fromPath("/data"),
                                                      FileURL::fromPath("/other")};

    for (int start = 0; start < 2; ++start) {
        EXPECT_EQ(VirelineApp::prepareLogFile(platform.userFolders, platform.fileSystem).path(),
                  "/data/Vireline/vireline.log");
        EXPECT_TRUE(platform.fileSystem.exists(FileURL::fromPath("/data/Vireline")));
    }
}

// Behaviour: entry-2
TEST(VirelineApp, UsesAFolderThatExistsAndKeepsItsContent) {
    test::FakePlatform platform;
    platform.userFolders.applicationSupportFolders = {FileURL::fromPath("/data")};
    platform.fileSystem.put(FileURL::fromPath("/data/Vireline/notes"), "kept");
    // The same error for a folder that already exists and one that cannot be created.
    platform.fileSystem.folderFailure = PlatformError{17, "File exists"};

    const FileURL logFile = VirelineApp::prepareLogFile(platform.userFolders, platform.fileSystem);
    const test::LoggedLines log;
    bool isRunning = false;
    platform.application.whileRunning = [&] { isRunning = platform.statusBar.item.has_value(); };
    VirelineApp::run(platform.ports(), log.file().string());

    EXPECT_EQ(logFile.path(), "/data/Vireline/vireline.log");
    EXPECT_TRUE(isRunning);
    EXPECT_EQ(platform.fileSystem.files.at("/data/Vireline/notes"), "kept");
}

TEST(VirelineAppDeathTest, StopsWithoutAFolderForApplicationData) {
    test::FakePlatform platform;
    platform.userFolders.applicationSupportFolders.clear();

    EXPECT_DEATH(
        static_cast<void>(VirelineApp::prepareLogFile(platform.userFolders, platform.fileSystem)),
        "the user has a folder for application data");
}

TEST(VirelineApp, TheHiddenMenuQuitsAndEdits) {
    const MainMenu menu = VirelineApp::hiddenMainMenu();

    ASSERT_EQ(menu.submenus.size(), 2U);
    EXPECT_EQ(menu.submenus[0].title, "");
    EXPECT_EQ(std::get<MainMenuCommand>(menu.submenus[0].entries.at(0)),
              (MainMenuCommand{"Quit Vireline", StandardAction::terminate, 'q'}));
    EXPECT_EQ(menu.submenus[1].title, "Edit");
    using Action = StandardAction;
    const decltype(MainMenuSubmenu::entries) edit{
        MainMenuCommand{"Undo", Action::undo, 'z'},
        MainMenuCommand{"Redo", Action::redo, 'Z'},
        MenuSeparator{},
        MainMenuCommand{"Cut", Action::cut, 'x'},
        MainMenuCommand{"Copy", Action::copy, 'c'},
        MainMenuCommand{"Paste", Action::paste, 'v'},
        MainMenuCommand{"Select All", Action::selectAll, 'a'}};
    EXPECT_TRUE(menu.submenus[1].entries == edit);
}

TEST(VirelineApp, RunsAsAnAccessoryWithItsMenuAndItsLogUntilTheUserQuits) {
    const test::LoggedLines log;
    test::FakePlatform platform;
    platform.application.exitCode = 3;
    std::vector<std::string> linesWhileRunning;
    platform.application.whileRunning = [&] { linesWhileRunning = log.messages(); };

    const int code = VirelineApp::run(platform.ports(), log.file().string());

    EXPECT_EQ(code, 3);
    EXPECT_TRUE(platform.application.isAccessory);
    EXPECT_EQ(platform.application.mainMenu, VirelineApp::hiddenMainMenu());
    ASSERT_FALSE(linesWhileRunning.empty());
    EXPECT_EQ(linesWhileRunning.front(), "Vireline started pid=4711");
    EXPECT_FALSE(platform.statusBar.item) << "nothing is left of the program";
}

}
}
