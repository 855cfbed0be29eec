#include "Files/PosixFileSystem.hpp"

#include "Files/FileDescriptor.hpp"
#include "Files/Folders.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace vireline::x11 {
namespace {

std::unexpected<PlatformError> failure(const FileURL& url, int code) {
    return std::unexpected{
        PlatformError{code, url.path() + ": " + std::generic_category().message(code)}};
}

int openAgainWhenInterrupted(const char* path, int flags) {
    int number = -1;
    do {
        number = ::open(path, flags);
    } while (number < 0 && errno == EINTR);
    return number;
}

/// 0, or what went wrong.
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

/// A file that no other has the name of, in the folder of the one that it is to replace. Gone with
/// this object unless it took that one's place.
class Replacement {
public:
    explicit Replacement(const FileURL& target)
        : path_(target.parent().appending("." + target.lastPathComponent() + ".XXXXXX").path())
        // Creates with O_EXCL, which follows no link, and mode 0600.
        , file_(::mkostemp(path_.data(), O_CLOEXEC)) {}
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    Replacement(Replacement&&) = delete;
    Replacement& operator=(Replacement&&) = delete;
    ~Replacement() {
        if (created_ && !placed_)
            ::unlink(path_.c_str());
    }

    [[nodiscard]] bool wasCreated() const noexcept { return created_; }

    /// 0, or what went wrong.
    int fill(std::string_view content) {
        if (const int code = writeAll(file_.get(), content); code != 0)
            return code;
        if (::fsync(file_.get()) != 0)
            return errno;
        return file_.close() ? 0 : errno;
    }

    int takePlace(const FileURL& target) {
        if (std::rename(path_.c_str(), target.path().c_str()) != 0)
            return errno;
        placed_ = true;
        return 0;
    }

private:
    std::string path_;
    FileDescriptor file_;
    bool created_ = static_cast<bool>(file_);
    bool placed_ = false;
};

/// Brings the folder's entries to the disk. The new file is in place already, and not every file
/// system can do this, so its failure is no failure of the write.
void synchronizeFolder(const FileURL& folder) {
    const FileDescriptor opened{
        openAgainWhenInterrupted(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    if (opened)
        ::fsync(opened.get());
}

}

bool PosixFileSystem::exists(const FileURL& url) const {
    struct stat found{};
    return ::stat(url.path().c_str(), &found) == 0;
}

Result<std::string> PosixFileSystem::read(const FileURL& url, std::size_t maximumBytes) const {
    // Without O_NONBLOCK the opening of a pipe waits for a writer.
    const FileDescriptor file{
        openAgainWhenInterrupted(url.path().c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)};
    if (!file)
        return failure(url, errno);
    struct stat found{};
    if (::fstat(file.get(), &found) != 0)
        return failure(url, errno);
    if (S_ISDIR(found.st_mode))
        return failure(url, EISDIR);
    if (!S_ISREG(found.st_mode))
        return std::unexpected{PlatformError{EINVAL, url.path() + ": Not a regular file"}};
    if (found.st_size > 0 && static_cast<std::uintmax_t>(found.st_size) > maximumBytes)
        return failure(url, EFBIG);

    std::string content;
    content.reserve(static_cast<std::size_t>(found.st_size));
    std::array<char, 64UL * 1024> chunk{};
    while (true) {
        const ssize_t got = ::read(file.get(), chunk.data(), chunk.size());
        if (got < 0) {
            if (errno == EINTR)
                continue;
            return failure(url, errno);
        }
        if (got == 0)
            return content;
        const auto count = static_cast<std::size_t>(got);
        if (count > maximumBytes - content.size())
            return failure(url, EFBIG);
        content.append(chunk.data(), count);
    }
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
    // Somebody else may have been quicker.
    if (code == EEXIST && isFolder(url))
        return {};
    return failure(url, code);
}

Result<void> PosixFileSystem::writeAtomically(const FileURL& url, std::string_view content) {
    Replacement replacement{url};
    if (!replacement.wasCreated())
        return failure(url, errno);
    if (const int code = replacement.fill(content); code != 0)
        return failure(url, code);
    if (const int code = replacement.takePlace(url); code != 0)
        return failure(url, code);
    synchronizeFolder(url.parent());
    return {};
}

}
