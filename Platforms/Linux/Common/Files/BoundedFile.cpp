#include "Files/BoundedFile.hpp"

#include "Files/FileDescriptor.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace vireline::xdg::BoundedFile {
namespace {

FileDescriptor open(const std::string& path) {
    return FileDescriptor{::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)};
}

/// Read in chunks, because the limit is often far above the file's actual size.
constexpr std::size_t chunkBytes = 16UL * 1024;

/// Reads up to `size` bytes; fewer at the end of the file or after an error.
std::string readUpTo(const FileDescriptor& file, std::size_t size) {
    std::string content;
    std::size_t filled = 0;
    while (filled < size) {
        content.resize(std::min(size, filled + chunkBytes));
        const ssize_t got = ::read(file.get(), content.data() + filled, content.size() - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    content.resize(filled);
    return content;
}

}

std::optional<std::string> read(const std::string& path, std::size_t maximumBytes) {
    const FileDescriptor file = open(path);
    struct stat status{};
    if (!file || fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > maximumBytes)
        return std::nullopt;
    return readUpTo(file, size);
}

std::string readStart(const std::string& path, std::size_t maximumBytes) {
    const FileDescriptor file = open(path);
    return file ? readUpTo(file, maximumBytes) : std::string{};
}

}
