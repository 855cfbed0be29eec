/// The pinned apps in a property-list preferences file.
#pragma once

#include "Desktop/PinnedAppsSource.hpp"
#include "Desktop/PropertyListReader.hpp"
#include "Platform/FileSystem.hpp"

namespace vireline::xdg {

class PropertyListPins final : public PinnedAppsSource {
public:
    PropertyListPins(const FileSystem& fileSystem, FileURL file);

    [[nodiscard]] bool exists() const override { return fileSystem_.exists(file_); }
    [[nodiscard]] std::optional<PropertyList> read() override;
    [[nodiscard]] Subscription observe(std::function<void()> handler) override;

private:
    const FileSystem& fileSystem_;
    FileURL file_;
    PropertyListReader reader_;
};

}
