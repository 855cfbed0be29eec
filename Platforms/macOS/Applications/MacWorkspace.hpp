/// Opens things through NSWorkspace.
#pragma once

#include "Platform/Applications/Workspace.hpp"

namespace vireline::macos {

class MacWorkspace final : public Workspace {
public:
    void openApplication(const std::string& bundleID, const FileURL& url) override;
    void open(const FileURL& url) override;
    void reveal(const std::vector<FileURL>& urls) override;
    void openSystemSettings(const std::string& paneURL) override;
};

}
