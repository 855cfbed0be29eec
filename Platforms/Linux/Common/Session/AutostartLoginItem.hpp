/// Starts the program at login through an entry in the user's autostart folder. The entry is the
/// only source of truth, because the user, the desktop's settings and this program may all change
/// it.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Platform/Desktop/LoginItemService.hpp"
#include "Platform/Files/FileSystem.hpp"

#include <string>
#include <vector>

namespace vireline::xdg {

class AutostartLoginItem final : public LoginItemService {
public:
    /// Where the entry is, which program it starts, and on which desktop.
    struct Place {
        /// The user's configuration folder.
        FileURL configHome;
        std::string programPath;
        std::vector<std::string> desktopNames;
    };

    AutostartLoginItem(FileSystem& fileSystem, Place place);

    /// Path of the running executable.
    [[nodiscard]] static std::string ownPath();

    /// An entry that does not start on this desktop, or whose program does not exist, counts as
    /// waiting for the user's approval.
    [[nodiscard]] Status status() const override;

    /// Writes an entry, or enables the existing one and points it at this program's current
    /// location. If the user has replaced the program with one of their own, that one is kept.
    Result<void> registerItem() override;

    /// Removes the entry, or hides it if the user has edited it.
    Result<void> unregisterItem() override;

private:
    /// Empty if there is no entry.
    [[nodiscard]] Result<std::string> read() const;
    [[nodiscard]] Result<void> write(const std::string& text);
    [[nodiscard]] bool startsUsersOwnProgram(const std::string& text) const;

    FileSystem& fileSystem_;
    Place place_;
    FileURL entry_;
};

}
