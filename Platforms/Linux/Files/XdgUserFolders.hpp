/// The user's folders as the XDG base directory and user directory conventions name them, fixed
/// when the program starts.
#pragma once

#include "Platform/UserFolders.hpp"

namespace vireline::x11 {

class XdgUserFolders final : public UserFolders {
public:
    /// Reads HOME, XDG_DATA_HOME and XDG_CONFIG_HOME. What is not an absolute path counts as unset.
    XdgUserFolders();

    /// HOME, else what the user database says.
    [[nodiscard]] FileURL home() const override { return home_; }

    /// The user's data folder, always exactly one.
    [[nodiscard]] std::vector<FileURL> applicationSupport() const override { return {dataHome_}; }

    /// The folder that user-dirs.dirs names if it exists, else "Downloads" in the home folder if
    /// that exists. One set to the home folder itself is switched off by convention.
    [[nodiscard]] std::optional<FileURL> downloads() const override;

    /// Always known, whether or not anything was ever thrown away.
    [[nodiscard]] std::optional<FileURL> trash() const override {
        return dataHome_.appending("Trash");
    }

    /// Where programs keep this user's configuration.
    [[nodiscard]] FileURL configHome() const { return configHome_; }

private:
    FileURL home_;
    FileURL dataHome_;
    FileURL configHome_;
};

}
