#include "Files/BoundedFile.hpp"

#include "Files/FileDescriptor.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <system_error>

namespace vireline::xdg::BoundedFile {
namespace {

std::unexpected<PlatformError> failure(const std::string& path, int code) {
    return std::unexpected{
        PlatformError{code, path + ": " + std::generic_category().message(code)}};
}

/// Without O_NONBLOCK, opening a pipe would block until it has a writer.
FileDescriptor open(const std::string& path) {
    int number = -1;
    do {
        number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    } while (number < 0 && errno == EINTR);
    return FileDescriptor{number};
}

/// Read in chunks, because the limit is often far above the file's actual size.
constexpr std::size_t chunkBytes = 16UL * 1024;

/// Appends up to `size` bytes, fewer at the end of the file. Returns 0 or an errno value.
int readUpTo(const FileDescriptor& file, std::size_t size, std::string& content) {
    std::size_t filled = 0;
    int error = 0;
    while (filled < size) {
        content.resize(std::min(size, filled + chunkBytes));
        const ssize_t got = ::read(file.get(), content.data() + filled, content.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        error = got < 0 ? errno : 0;
        if (got <= 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    content.resize(filled);
    return error;
}

}

Result<std::string> read(const std::string& path, std::size_t maximumBytes) {
    const FileDescriptor file = open(path);
    struct stat status{};
    if (!file || fstat(file.get(), &status) != 0)
        return failure(path, errno);
    if (S_ISDIR(status.st_mode))
        return failure(path, EISDIR);
    if (!S_ISREG(status.st_mode))
        return std::unexpected{PlatformError{EINVAL, path + ": Not a regular file"}};
    if (std::cmp_greater(status.st_size, maximumBytes))
        return failure(path, EFBIG);
    // Some files of the kernel have content although their size is zero.
    const std::size_t size =
        status.st_size > 0 ? static_cast<std::size_t>(status.st_size) : maximumBytes + 1;
    std::string content;
    if (const int code = readUpTo(file, size, content); code != 0)
        return failure(path, code);
    if (content.size() > maximumBytes)
        return failure(path, EFBIG);
    return content;
}

std::string readStart(const std::string& path, std::size_t maximumBytes) {
    const FileDescriptor file = open(path);
    std::string content;
    if (file)
        readUpTo(file, maximumBytes, content);
    return content;
}

}
