/// The user's folders according to the XDG base directory and user directory conventions, fixed
/// at start-up.
#pragma once

#include "Platform/Files/UserFolders.hpp"

namespace vireline::xdg {

class XdgUserFolders final : public UserFolders {
public:
    /// Reads HOME, XDG_DATA_HOME and XDG_CONFIG_HOME. Values that are not absolute paths are
    /// treated as unset.
    XdgUserFolders();

    /// HOME, otherwise the home folder in the user database.
    [[nodiscard]] FileURL home() const override { return home_; }

    /// The user's data folder, always exactly one.
    [[nodiscard]] std::vector<FileURL> applicationSupport() const override { return {dataHome_}; }

    /// The folder named in user-dirs.dirs if it exists, otherwise "Downloads" in the home folder if
    /// that exists. By convention, an entry that names the home folder itself means that there is
    /// none.
    [[nodiscard]] std::optional<FileURL> downloads() const override;

    /// Always set, even if nothing was ever trashed.
    [[nodiscard]] std::optional<FileURL> trash() const override {
        return dataHome_.appending("Trash");
    }

    /// The user's configuration folder.
    [[nodiscard]] FileURL configHome() const { return configHome_; }

private:
    FileURL home_;
    FileURL dataHome_;
    FileURL configHome_;
};

}
