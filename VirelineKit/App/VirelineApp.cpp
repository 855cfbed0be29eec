#include "App/VirelineApp.hpp"

#include "App/AppDelegate.hpp"
#include "Foundation/DevLog.hpp"
#include "Foundation/Require.hpp"
#include "Platform/Application.hpp"
#include "Platform/Files/FileSystem.hpp"
#include "Platform/Files/UserFolders.hpp"

namespace vireline::VirelineApp {

FileURL prepareLogFile(const UserFolders& folders, FileSystem& files) {
    const auto supportFolders = folders.applicationSupport();
    require(!supportFolders.empty(), "the user has a folder for application data");
    const FileURL folder = supportFolders.front().appending("Vireline");
    // Without the folder, lines reach standard output only.
    static_cast<void>(files.createFolder(folder));
    return folder.appending("vireline.log");
}

int run(const Platform& platform, const std::string& devLogPath) {
    DevLog::setPath(devLogPath);
    platform.application.becomeAccessory();
    platform.application.installMainMenu(hiddenMainMenu());
    AppDelegate delegate{platform};
    return platform.application.run([&delegate] { delegate.applicationDidFinishLaunching(); });
}

MainMenu hiddenMainMenu() {
    MainMenuSubmenu program;
    program.entries = {MainMenuCommand{"Quit Vireline", StandardAction::terminate, 'q'}};
    MainMenuSubmenu edit{"Edit", {}};
    edit.entries = {MainMenuCommand{"Undo", StandardAction::undo, 'z'},
                    MainMenuCommand{"Redo", StandardAction::redo, 'Z'},
                    MenuSeparator{},
                    MainMenuCommand{"Cut", StandardAction::cut, 'x'},
                    MainMenuCommand{"Copy", StandardAction::copy, 'c'},
                    MainMenuCommand{"Paste", StandardAction::paste, 'v'},
                    MainMenuCommand{"Select All", StandardAction::selectAll, 'a'}};
    return {{std::move(program), std::move(edit)}};
}

}
