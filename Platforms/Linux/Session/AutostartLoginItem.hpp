/// The start at login as an entry in the user's autostart folder. The entry is the only truth: the
/// user, the desktop's settings and this program all may change it.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Platform/FileSystem.hpp"
#include "Platform/LoginItemService.hpp"

#include <string>
#include <vector>

namespace vireline::x11 {

class AutostartLoginItem final : public LoginItemService {
public:
    /// Where the entry is, what it starts, and on which desktop.
    struct Place {
        /// The user's configuration folder.
        FileURL configHome;
        std::string programPath;
        std::vector<std::string> desktopNames;
    };

    AutostartLoginItem(FileSystem& fileSystem, Place place);

    /// The running program's own path.
    [[nodiscard]] static std::string ownPath();

    /// An entry that is there but does not start on this desktop, or starts a program that is not
    /// there, counts as one that waits for the user's approval.
    [[nodiscard]] Status status() const override;

    /// Writes an entry, or switches the one that is there on and has it start this program from
    /// where it is now. A program of the user's own in its place stays.
    Result<void> registerItem() override;

    /// Removes the entry, or hides it when it holds more than this program wrote.
    Result<void> unregisterItem() override;

private:
    /// Empty when there is no entry.
    [[nodiscard]] Result<std::string> read() const;
    [[nodiscard]] Result<void> write(const std::string& text);
    [[nodiscard]] bool startsProgramOfTheUsersOwn(const std::string& text) const;

    FileSystem& fileSystem_;
    Place place_;
    FileURL entry_;
};

}
