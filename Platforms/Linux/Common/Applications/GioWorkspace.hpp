/// Opens applications, files and folders with the programs that the desktop associates with them.
#pragma once

#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/DesktopRunningApplications.hpp"
#include "Applications/FileManagerClient.hpp"
#include "Applications/Launching/Launcher.hpp"
#include "Applications/Launching/StartupNotices.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/Applications/Workspace.hpp"
#include "Platform/Desktop/PointerSettings.hpp"
#include "Platform/Files/UserFolders.hpp"

#include <string>
#include <vector>

namespace vireline::xdg {

class GioWorkspace final : public Workspace {
public:
    GioWorkspace(StartupNotices& notices, const DesktopEntryCatalog& catalog,
                 DesktopRunningApplications& running, const UserFolders& folders,
                 const PointerSettings& pointerSettings);

    void openApplication(const std::string& bundleID, const FileURL& url) override;
    void launchAgain(const std::string& bundleID, const FileURL& url) override;
    void perform(const std::string& bundleID, const FileURL& url,
                 const std::string& actionID) override;
    void open(const FileURL& url) override;
    void reveal(const std::vector<FileURL>& urls) override;

private:
    [[nodiscard]] bool isLaunching(const std::string& bundleID) const;
    [[nodiscard]] std::string fileManagerPath() const;
    /// Launches the app, or carries out one of its actions.
    void launch(const std::string& bundleID, const DesktopEntry& entry,
                const std::string& actionID = {});
    void openFolders(const std::vector<FileURL>& files);

    StartupNotices& notices_;
    const DesktopEntryCatalog& catalog_;
    DesktopRunningApplications& running_;
    const UserFolders& folders_;
    const PointerSettings& pointerSettings_;
    Launcher launcher_;
    FileManagerClient fileManager_;
    Lifetime lifetime_;
};

}
