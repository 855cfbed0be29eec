/// The launchers of the Plank dock: one small file each, put in order by a settings key.
#pragma once

#include "Desktop/PinnedAppsSource.hpp"
#include "Desktop/StringListSetting.hpp"
#include "Platform/FileSystem.hpp"

namespace vireline::x11 {

class PlankLaunchers final : public PinnedAppsSource {
public:
    /// `configHome` is where this user's programs keep their configuration.
    PlankLaunchers(const FileSystem& fileSystem, const FileURL& configHome,
                   const SettingsStorage& storage);

    /// Plank is installed, and has the folder of its first dock's launchers.
    [[nodiscard]] bool exists() const override;
    [[nodiscard]] std::optional<PropertyList> read() override;
    [[nodiscard]] Subscription observe(std::function<void()> handler) override;

private:
    [[nodiscard]] StringListSetting* order() const;
    [[nodiscard]] std::vector<std::string> launchersInOrder() const;

    const FileSystem& fileSystem_;
    FileURL folder_;
    SettingsStorage storage_;
    /// Looked up once there is a folder: the settings cost time that other desktops need not spend.
    mutable std::optional<std::unique_ptr<StringListSetting>> order_;
};

}
