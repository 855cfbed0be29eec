/// The program's own files. Errors have the system's error number and its description, in the
/// user's language.
#pragma once

#include "Platform/Files/FileSystem.hpp"

namespace vireline::macos {

class FoundationFileSystem final : public FileSystem {
public:
    /// Follows symbolic links.
    [[nodiscard]] bool exists(const FileURL& url) const override;

    /// Reads regular files only: a pipe or a device at the path is an error and does not block.
    [[nodiscard]] Result<std::string> read(const FileURL& url,
                                           std::size_t maximumBytes) const override;

    /// New folders are accessible to the user only (mode 0700).
    Result<void> createFolder(const FileURL& url) override;

    /// Writes a temporary file next to the target, flushes it to the disk, and renames it over the
    /// target. A symbolic link at `url` is followed only under the conditions of
    /// `resolvedWriteTarget`, and otherwise replaced.
    Result<void> writeAtomically(const FileURL& url, std::string_view content) override;
};

}
