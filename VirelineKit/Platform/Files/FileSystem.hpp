/// Reads and writes the program's own files, and tells whether others exist.
#pragma once

#include "Foundation/FileURL.hpp"
#include "Foundation/Result.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace vireline {

class FileSystem {
public:
    virtual ~FileSystem() = default;

    [[nodiscard]] virtual bool exists(const FileURL& url) const = 0;

    /// The contents of the file. Fails if it cannot be read, or, with the code of
    /// `std::errc::file_too_large`, if it is longer than `maximumBytes`.
    [[nodiscard]] virtual Result<std::string> read(const FileURL& url,
                                                   std::size_t maximumBytes) const = 0;

    /// Creates the folder and its missing parents. Succeeds if it exists already.
    virtual Result<void> createFolder(const FileURL& url) = 0;

    /// Replaces the file atomically: a reader, or the next start after a power cut, sees either the
    /// old content or the new. If the call fails, the old file is unchanged. Only the user may read
    /// and write the new one. Removes temporary files that interrupted calls left in the folder.
    virtual Result<void> writeAtomically(const FileURL& url, std::string_view content) = 0;
};

}
