/// The applications installed on this Mac.
#pragma once

#include "Platform/Applications/ApplicationCatalog.hpp"

namespace vireline::macos {

class WorkspaceCatalog final : public ApplicationCatalog {
public:
    [[nodiscard]] std::optional<FileURL> urlForBundleID(const std::string& bundleID) const override;
    [[nodiscard]] std::optional<std::string> bundleIdentifier(const FileURL& url) const override;
    [[nodiscard]] std::string displayName(const FileURL& url) const override;
    [[nodiscard]] std::string bundleExtension() const override { return "app"; }
    [[nodiscard]] FileManager fileManager() const override {
        return {"com.apple.finder", "Finder"};
    }
    [[nodiscard]] std::vector<std::string> wellKnownBundleIDs() const override;
};

}
