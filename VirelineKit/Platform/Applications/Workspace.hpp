/// Opens things as the desktop does. No call blocks, and none returns a result: the desktop or the
/// app itself reports failures to the user.
#pragma once

#include "Foundation/FileURL.hpp"

#include <string>
#include <vector>

namespace vireline {

class Workspace {
public:
    virtual ~Workspace() = default;

    /// Launches the application at `url`, or activates and re-opens it if it is running.
    virtual void openApplication(const std::string& bundleID, const FileURL& url) = 0;

    /// Starts the application at `url` once more, even if it is running. What happens then is up
    /// to the application; most open a window. Does nothing where the system does not support it.
    virtual void launchAgain(const std::string& /*bundleID*/, const FileURL& /*url*/) {}

    /// Carries out one of the application's `ApplicationCatalog::actions`.
    virtual void perform(const std::string& /*bundleID*/, const FileURL& /*url*/,
                         const std::string& /*actionID*/) {}

    /// Opens a file or folder with its default application.
    virtual void open(const FileURL& url) = 0;

    /// Shows the files in the file manager and selects them.
    virtual void reveal(const std::vector<FileURL>& urls) = 0;

    /// Opens a pane of the system's settings by its URL. Called only if the platform's
    /// `DesktopWords` name such a pane.
    virtual void openSystemSettings(const std::string& /*paneURL*/) {}
};

}
