#include "Files/Leftovers.hpp"

#include "Files/FileDescriptor.hpp"
#include "Foundation/ReplacementNames.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>
#include <vector>

namespace vireline::xdg {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

/// Opens a new file description, because reading the entries moves its offset.
std::unique_ptr<DIR, CloseFolder> opened(int folder) {
    const int number = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    DIR* const stream = number < 0 ? nullptr : ::fdopendir(number);
    if (stream == nullptr && number >= 0)
        ::close(number);
    return std::unique_ptr<DIR, CloseFolder>{stream};
}

std::vector<std::string> replacements(int folder, std::string_view name) {
    std::vector<std::string> found;
    const auto entries = opened(folder);
    while (const dirent* const entry = entries ? ::readdir(entries.get()) : nullptr) {
        if (ReplacementNames::isName(entry->d_name, name))
            found.emplace_back(entry->d_name);
    }
    return found;
}

bool looksLikeOurs(int file) {
    struct stat found{};
    return ::fstat(file, &found) == 0 && S_ISREG(found.st_mode) && found.st_uid == ::geteuid() &&
           found.st_nlink == 1 && (found.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

}

bool holdAgainstRemoval(int file) {
    int failed = 0;
    do {
        failed = ::flock(file, LOCK_EX);
    } while (failed != 0 && errno == EINTR);
    // Where the file system does not support locks, other processes cannot lock the file to remove
    // it either.
    struct stat found{};
    return ::fstat(file, &found) != 0 || found.st_nlink > 0;
}

void removeLeftovers(int folder, std::string_view name) {
    for (const std::string& replacement : replacements(folder, name)) {
        const FileDescriptor file{
            ::openat(folder, replacement.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)};
        // A replacement that has been moved into place in the meantime no longer has this name.
        if (file && looksLikeOurs(file.get()) && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0)
            ::unlinkat(folder, replacement.c_str(), 0);
    }
}

}
