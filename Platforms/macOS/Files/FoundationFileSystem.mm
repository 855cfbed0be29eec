#include "Files/FoundationFileSystem.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"

#import <Foundation/Foundation.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace vireline::macos {
namespace {

std::unexpected<PlatformError> failure(int code) {
    return std::unexpected{toPlatformError(code)};
}

std::unexpected<PlatformError> failure(NSError* error) {
    return std::unexpected{toPlatformError(error)};
}

NSFileHandle* owning(int file) {
    return [[NSFileHandle alloc] initWithFileDescriptor:file closeOnDealloc:YES];
}

/// 0, or why this is not a file of at most `maximumBytes`.
int refusal(int file, std::size_t maximumBytes) {
    struct stat found{};
    if (::fstat(file, &found) != 0)
        return errno;
    if (S_ISDIR(found.st_mode))
        return EISDIR;
    if (!S_ISREG(found.st_mode))
        return EINVAL;
    if (found.st_size > 0 && static_cast<std::uintmax_t>(found.st_size) > maximumBytes)
        return EFBIG;
    return 0;
}

Result<std::string> readFile(const FileURL& url, std::size_t maximumBytes) {
    // Without O_NONBLOCK the opening of a pipe waits for a writer.
    const int file = ::open(url.path().c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file < 0)
        return failure(errno);
    NSFileHandle* const handle = owning(file);
    if (const int code = refusal(file, maximumBytes); code != 0)
        return failure(code);
    NSError* error = nil;
    // One more than allowed tells of a file that grew meanwhile.
    NSData* const data = [handle readDataUpToLength:maximumBytes + 1 error:&error];
    if (data == nil)
        return failure(error);
    if (data.length > maximumBytes)
        return failure(EFBIG);
    if (data.length == 0)
        return std::string{};
    return std::string{static_cast<const char*>(data.bytes), data.length};
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
        if (wasCreated() && !isPlaced_)
            ::unlink(path_.c_str());
    }

    [[nodiscard]] bool wasCreated() const noexcept { return file_ >= 0; }

    Result<void> fill(std::string_view content) {
        NSFileHandle* const handle = owning(file_);
        NSError* error = nil;
        NSData* const data = [NSData dataWithBytes:content.data() length:content.size()];
        if (![handle writeData:data error:&error] || ![handle synchronizeAndReturnError:&error] ||
            ![handle closeAndReturnError:&error])
            return failure(error);
        return {};
    }

    Result<void> takePlace(const FileURL& target) {
        if (std::rename(path_.c_str(), target.path().c_str()) != 0)
            return failure(errno);
        isPlaced_ = true;
        return {};
    }

private:
    std::string path_;
    int file_;
    bool isPlaced_ = false;
};

Result<void> replaceFile(const FileURL& url, std::string_view content) {
    Replacement replacement{url};
    if (!replacement.wasCreated())
        return failure(errno);
    if (auto filled = replacement.fill(content); !filled)
        return filled;
    return replacement.takePlace(url);
}

}

bool FoundationFileSystem::exists(const FileURL& url) const {
    return attemptOr(false, "fileExistsAtPath", [&] {
        return static_cast<bool>(
            [NSFileManager.defaultManager fileExistsAtPath:toNSString(url.path())]);
    });
}

Result<std::string> FoundationFileSystem::read(const FileURL& url, std::size_t maximumBytes) const {
    return attemptOr(Result<std::string>{failure(EIO)}, "readDataUpToLength",
                     [&] { return readFile(url, maximumBytes); });
}

Result<void> FoundationFileSystem::createFolder(const FileURL& url) {
    return attemptOr(Result<void>{failure(EIO)}, "createDirectoryAtURL", [&]() -> Result<void> {
        NSError* error = nil;
        if (![NSFileManager.defaultManager createDirectoryAtURL:toNSURL(url)
                                    withIntermediateDirectories:YES
                                                     attributes:@{
                                                         NSFilePosixPermissions : @0700
                                                     }
                                                          error:&error])
            return failure(error);
        return {};
    });
}

Result<void> FoundationFileSystem::writeAtomically(const FileURL& url, std::string_view content) {
    return attemptOr(Result<void>{failure(EIO)}, "writeData",
                     [&] { return replaceFile(url, content); });
}

}
