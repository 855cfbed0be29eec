#include "Files/Log/LogFile.hpp"

#include "Files/FileDescriptor.hpp"
#include "Files/PosixFileSystem.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace vireline::xdg::LogFile {
namespace {

/// Checks the file that was opened, not the path, which may name another file by now.
bool isOwnFile(const FileDescriptor& file) {
    struct stat found{};
    return ::fstat(file.get(), &found) == 0 && S_ISREG(found.st_mode) &&
           found.st_uid == ::geteuid();
}

}

void append(const std::string& path, std::string_view line) {
    const FileDescriptor file{
        ::open(path.c_str(), O_WRONLY | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)};
    if (!file && errno == ENOENT) {
        static_cast<void>(PosixFileSystem{}.writeAtomically(FileURL::fromPath(path), line));
        return;
    }
    if (!file || !isOwnFile(file))
        return;
    while (!line.empty()) {
        const ssize_t written = ::write(file.get(), line.data(), line.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        line.remove_prefix(static_cast<std::size_t>(written));
    }
}

}
