/// Files through plain system calls. Errors carry errno and read "<path>: <what the system says>".
#pragma once

#include "Platform/FileSystem.hpp"

namespace vireline::x11 {

class PosixFileSystem final : public FileSystem {
public:
    /// A symbolic link counts as what it leads to; one that leads nowhere does not exist.
    [[nodiscard]] bool exists(const FileURL& url) const override;

    /// Regular files only: a pipe or a device put in a file's place is an error, never a wait.
    [[nodiscard]] Result<std::string> read(const FileURL& url,
                                           std::size_t maximumBytes) const override;

    /// Folders that it makes are the user's alone (mode 0700).
    Result<void> createFolder(const FileURL& url) override;

    /// Writes a new file beside the old one, brings it to the disk and renames it over that. A
    /// symbolic link at `url` is followed when it, the file that it leads to and that file's folder
    /// are the user's own; any other is itself replaced, so that whoever can plant a link in the
    /// folder cannot make the program overwrite a file elsewhere.
    Result<void> writeAtomically(const FileURL& url, std::string_view content) override;
};

}
