/// The files that the program itself keeps, and questions about those of others.
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

    /// The whole file. Fails when it cannot be read; with the code of `std::errc::file_too_large`
    /// when it is longer than `maximumBytes`.
    [[nodiscard]] virtual Result<std::string> read(const FileURL& url,
                                                   std::size_t maximumBytes) const = 0;

    /// Creates the folder with all missing ones above it; one that exists is no error.
    virtual Result<void> createFolder(const FileURL& url) = 0;

    /// Replaces the file whole: a reader, or the next start after a power cut, sees the old content
    /// or the new, never a part. A failure leaves the old file as it was. Readable and writable by
    /// the user alone. What earlier such calls left in the folder that were cut off, by a crash
    /// say, is removed.
    virtual Result<void> writeAtomically(const FileURL& url, std::string_view content) = 0;
};

}
