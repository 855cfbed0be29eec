/// Opening things as the user's desktop does. Nothing here blocks, and nothing reports back: an app
/// that does not open shows so by itself.
#pragma once

#include "Foundation/FileURL.hpp"

#include <string>
#include <vector>

namespace vireline {

class Workspace {
public:
    virtual ~Workspace() = default;

    /// Launches the application at `url`, or brings it forward and re-opens it when it runs.
    virtual void openApplication(const std::string& bundleID, const FileURL& url) = 0;

    /// Opens a file or folder with the application that the user chose for it.
    virtual void open(const FileURL& url) = 0;

    /// Shows the files in the file manager, selected.
    virtual void reveal(const std::vector<FileURL>& urls) = 0;

    /// Opens a pane of the system's settings by its URL. Only asked of a platform whose words name
    /// such a pane.
    virtual void openSystemSettings(const std::string& /*paneURL*/) {}
};

}
