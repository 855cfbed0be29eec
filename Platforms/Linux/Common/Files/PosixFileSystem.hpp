/// Files through plain system calls. Errors carry errno and read "<path>: <system error message>".
#pragma once

#include "Platform/Files/FileSystem.hpp"

namespace vireline::xdg {

class PosixFileSystem final : public FileSystem {
public:
    /// Symbolic links are followed; a dangling link does not exist.
    [[nodiscard]] bool exists(const FileURL& url) const override;

    /// Regular files only: a pipe or a device is an error, and never blocks.
    [[nodiscard]] Result<std::string> read(const FileURL& url,
                                           std::size_t maximumBytes) const override;

    /// Creates missing folders with mode 0700.
    Result<void> createFolder(const FileURL& url) override;

    /// Writes a temporary file next to the target, syncs it to disk and renames it over the target.
    /// A symbolic link at `url` is followed only if the link, its target and the target's folder
    /// all belong to the user; any other link is itself replaced, so that planting a link in the
    /// folder cannot make the program overwrite a file elsewhere.
    Result<void> writeAtomically(const FileURL& url, std::string_view content) override;
};

}
