/// The pinned apps in a property-list preferences file.
#pragma once

#include "Desktop/Pinned/PinnedAppsSource.hpp"
#include "Desktop/PropertyLists/PropertyListReader.hpp"
#include "Platform/Files/FileSystem.hpp"

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
