/// The launchers of the Plank dock: one small file each, ordered by a settings key.
#pragma once

#include "Desktop/Pinned/PinnedAppsSource.hpp"
#include "Desktop/StringListSetting.hpp"
#include "Platform/Files/FileSystem.hpp"

namespace vireline::xdg {

class PlankLaunchers final : public PinnedAppsSource {
public:
    /// `configHome` is the user's configuration folder.
    PlankLaunchers(const FileSystem& fileSystem, const FileURL& configHome,
                   const SettingsStorage& storage);

    /// Whether Plank is installed and has a launchers folder for its first dock.
    [[nodiscard]] bool exists() const override;
    [[nodiscard]] std::optional<PropertyList> read() override;
    [[nodiscard]] Subscription observe(std::function<void()> handler) override;

private:
    [[nodiscard]] StringListSetting* order() const;
    [[nodiscard]] std::vector<std::string> launchersInOrder() const;

    const FileSystem& fileSystem_;
    FileURL folder_;
    SettingsStorage storage_;
    /// Looked up once the folder exists, because opening GSettings is slow.
    mutable std::optional<std::unique_ptr<StringListSetting>> order_;
};

}
