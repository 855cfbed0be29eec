/// Opens applications, files and folders with the programs that the desktop associates with them.
#pragma once

#include "Applications/DesktopEntryCatalog.hpp"
#include "Applications/EwmhRunningApplications.hpp"
#include "Applications/FileManagerClient.hpp"
#include "Applications/Launching/Launcher.hpp"
#include "Foundation/Lifetime.hpp"
#include "Platform/PointerSettings.hpp"
#include "Platform/UserFolders.hpp"
#include "Platform/Workspace.hpp"
#include "X11/X11Connection.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace vireline::x11 {

class GioWorkspace final : public Workspace {
public:
    GioWorkspace(X11Connection& connection, const DesktopEntryCatalog& catalog,
                 EwmhRunningApplications& running, const UserFolders& folders,
                 const PointerSettings& pointerSettings);

    void openApplication(const std::string& bundleID, const FileURL& url) override;
    void open(const FileURL& url) override;
    void reveal(const std::vector<FileURL>& urls) override;

private:
    [[nodiscard]] bool isLaunching(const std::string& bundleID) const;
    [[nodiscard]] std::string fileManagerPath() const;
    void launch(const std::string& bundleID, const DesktopEntry& entry);
    void openFolders(const std::vector<FileURL>& files);
    [[nodiscard]] std::string nextStartupID();

    X11Connection& connection_;
    const DesktopEntryCatalog& catalog_;
    EwmhRunningApplications& running_;
    const UserFolders& folders_;
    const PointerSettings& pointerSettings_;
    Launcher launcher_;
    FileManagerClient fileManager_;
    std::uint64_t launches_ = 0;
    Lifetime lifetime_;
};

}
