/// The program's own files. Errors carry the system's error number and its words, in the user's
/// language.
#pragma once

#include "Platform/FileSystem.hpp"

namespace vireline::macos {

class FoundationFileSystem final : public FileSystem {
public:
    /// A symbolic link counts as what it leads to.
    [[nodiscard]] bool exists(const FileURL& url) const override;

    /// Regular files only: a pipe or a device put in a file's place is an error, never a wait.
    [[nodiscard]] Result<std::string> read(const FileURL& url,
                                           std::size_t maximumBytes) const override;

    /// Folders that it makes are the user's alone (mode 0700).
    Result<void> createFolder(const FileURL& url) override;

    /// Writes a new file beside `url`, brings it to the disk and renames it over `url`. A symbolic
    /// link at `url` is itself replaced and never followed.
    Result<void> writeAtomically(const FileURL& url, std::string_view content) override;
};

}
