#include "Files/PosixFileSystem.hpp"

#include "Files/BoundedFile.hpp"
#include "Files/FileDescriptor.hpp"
#include "Files/Folders.hpp"
#include "Files/Leftovers.hpp"
#include "Files/WriteTarget.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ReplacementNames.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <random>
#include <system_error>
#include <utility>

namespace vireline::xdg {
namespace {

std::unexpected<PlatformError> failure(const FileURL& url, int code) {
    return std::unexpected{
        PlatformError{code, url.path() + ": " + std::generic_category().message(code)}};
}

/// Returns 0 or an errno value.
int writeAll(int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = ::write(file, content.data(), content.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// A temporary file with a unique name in the folder of the file that it will replace. Deleted with
/// this object unless it was moved into place. It stays open until then, so that no other process
/// removes it as a leftover.
class Replacement : private NonCopyable {
public:
    explicit Replacement(WriteTarget target) : target_(std::move(target)) {
        if (target_.error != 0)
            return;
        removeLeftovers(target_.folder.get(), target_.name);
        create();
    }
    ~Replacement() {
        if (created_ && !placed_)
            ::unlinkat(target_.folder.get(), name_.c_str(), 0);
    }

    /// 0, or the error that prevented its creation.
    [[nodiscard]] int error() const noexcept { return target_.error; }

    /// Returns 0 or an errno value.
    int fill(std::string_view content) {
        if (!file_)
            return EBADF;
        if (const int code = writeAll(file_.get(), content); code != 0)
            return code;
        return ::fsync(file_.get()) == 0 ? 0 : errno;
    }

    /// Returns 0 or an errno value. The folder is synced as well; by then the file is in place, and
    /// some file systems cannot sync folders, so an error from that is ignored.
    int takePlace() {
        const int folder = target_.folder.get();
        if (::renameat(folder, name_.c_str(), folder, target_.name.c_str()) != 0)
            return errno;
        placed_ = true;
        ::fsync(folder);
        return 0;
    }

private:
    /// Uses O_EXCL, which does not follow links, and mode 0600.
    void create() {
        constexpr int maximumAttempts = 16;
        std::random_device random;
        for (int attempt = 0; attempt < maximumAttempts; ++attempt) {
            constexpr unsigned bitsPerDraw = 32;
            name_ = ReplacementNames::name(target_.name,
                                           std::uint64_t{random()} << bitsPerDraw | random());
            file_ = FileDescriptor{::openat(target_.folder.get(), name_.c_str(),
                                            O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                                            S_IRUSR | S_IWUSR)};
            created_ = static_cast<bool>(file_);
            target_.error = created_ ? 0 : errno;
            if (created_ && holdAgainstRemoval(file_.get()))
                return;
            if (!created_ && target_.error != EEXIST && target_.error != EINTR)
                return;
        }
    }

    WriteTarget target_;
    std::string name_;
    FileDescriptor file_;
    bool created_ = false;
    bool placed_ = false;
};

}

bool PosixFileSystem::exists(const FileURL& url) const {
    struct stat found{};
    return ::stat(url.path().c_str(), &found) == 0;
}

Result<std::string> PosixFileSystem::read(const FileURL& url, std::size_t maximumBytes) const {
    return BoundedFile::read(url.path(), maximumBytes);
}

Result<void> PosixFileSystem::createFolder(const FileURL& url) {
    if (isFolder(url))
        return {};
    if (url.parent() != url) {
        if (auto above = createFolder(url.parent()); !above)
            return above;
    }
    if (::mkdir(url.path().c_str(), S_IRWXU) == 0)
        return {};
    const int code = errno;
    // Another process may have created it in the meantime.
    if (code == EEXIST && isFolder(url))
        return {};
    return failure(url, code);
}

Result<void> PosixFileSystem::writeAtomically(const FileURL& url, std::string_view content) {
    Replacement replacement{resolvedWriteTarget(url)};
    if (replacement.error() != 0)
        return failure(url, replacement.error());
    if (const int code = replacement.fill(content); code != 0)
        return failure(url, code);
    if (const int code = replacement.takePlace(); code != 0)
        return failure(url, code);
    return {};
}

}
