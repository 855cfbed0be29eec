#include "Files/Leftovers.hpp"

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

namespace vireline::macos {
namespace {

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

std::vector<FileURL> replacements(const FileURL& url) {
    std::vector<FileURL> found;
    const FileURL folder = url.parent();
    const std::string name = url.lastPathComponent();
    const std::unique_ptr<DIR, CloseFolder> entries{::opendir(folder.path().c_str())};
    while (const dirent* const entry = entries ? ::readdir(entries.get()) : nullptr) {
        if (ReplacementNames::isName(entry->d_name, name))
            found.push_back(folder.appending(entry->d_name));
    }
    return found;
}

bool looksLikeOurs(int file) {
    struct stat found{};
    return ::fstat(file, &found) == 0 && S_ISREG(found.st_mode) && found.st_uid == ::geteuid() &&
           found.st_nlink == 1 && (found.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

void removeUnlessInUse(const FileURL& replacement) {
    const char* const path = replacement.path().c_str();
    const int file = ::open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    // A file that has been renamed over its target in the meantime no longer has this name, so it
    // is safe.
    if (looksLikeOurs(file) && ::flock(file, LOCK_EX | LOCK_NB) == 0)
        ::unlink(path);
    ::close(file);
}

}

bool holdAgainstRemoval(int file) {
    int failed = 0;
    do {
        failed = ::flock(file, LOCK_EX);
    } while (failed != 0 && errno == EINTR);
    // The result of the lock is ignored: where locking does not work, other processes cannot lock
    // the file to remove it either.
    struct stat found{};
    return ::fstat(file, &found) != 0 || found.st_nlink > 0;
}

void removeLeftovers(const FileURL& url) {
    for (const FileURL& replacement : replacements(url))
        removeUnlessInUse(replacement);
}

}
