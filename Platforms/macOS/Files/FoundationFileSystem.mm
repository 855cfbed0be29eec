#include "Files/FoundationFileSystem.hpp"

#include "Bridge/Attempt.hpp"
#include "Bridge/Conversions.hpp"
#include "Files/Leftovers.hpp"
#include "Files/WriteTarget.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Foundation/ReplacementNames.hpp"

#import <Foundation/Foundation.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>

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

/// 0 for a regular file of at most `maximumBytes`, otherwise an error number.
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
    // Without O_NONBLOCK, opening a pipe would wait for a writer.
    const int file = ::open(url.path().c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (file < 0)
        return failure(errno);
    NSFileHandle* const handle = owning(file);
    if (const int code = refusal(file, maximumBytes); code != 0)
        return failure(code);
    NSError* error = nil;
    // Reads one byte more than allowed, to notice a file that has grown in the meantime.
    NSData* const data = [handle readDataUpToLength:maximumBytes + 1 error:&error];
    if (data == nil)
        return failure(error);
    if (data.length > maximumBytes)
        return failure(EFBIG);
    if (data.length == 0)
        return std::string{};
    return std::string{static_cast<const char*>(data.bytes), data.length};
}

/// A temporary file with a unique name in the target's folder. Removed with this object unless it
/// has replaced the target. Kept open and locked until then, so that no other process removes it as
/// a leftover.
class Replacement : private NonCopyable {
public:
    explicit Replacement(const FileURL& target) {
        removeLeftovers(target);
        create(target);
    }
    ~Replacement() {
        if (wasCreated() && !isPlaced_)
            ::unlink(path_.c_str());
        attempt("closeAndReturnError", [this] { [handle_ closeAndReturnError:nil]; });
    }

    [[nodiscard]] bool wasCreated() const noexcept { return handle_ != nil; }
    /// The error number if creation failed.
    [[nodiscard]] int error() const noexcept { return error_; }

    Result<void> fill(std::string_view content) {
        NSError* error = nil;
        NSData* const data = [NSData dataWithBytes:content.data() length:content.size()];
        if (![handle_ writeData:data error:&error] || ![handle_ synchronizeAndReturnError:&error])
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
    /// With O_EXCL, which does not follow links, and accessible to the user only.
    void create(const FileURL& target) {
        constexpr int maximumAttempts = 16;
        constexpr unsigned bitsPerDraw = 32;
        std::random_device random;
        for (int attempt = 0; attempt < maximumAttempts && handle_ == nil; ++attempt) {
            const auto token = std::uint64_t{random()} << bitsPerDraw | random();
            const auto name = ReplacementNames::name(target.lastPathComponent(), token);
            path_ = target.parent().appending(name).path();
            const int file =
                ::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                       S_IRUSR | S_IWUSR);
            error_ = file < 0 ? errno : 0;
            if (file < 0 && error_ != EEXIST && error_ != EINTR)
                return;
            if (file >= 0 && holdAgainstRemoval(file))
                handle_ = owning(file);
            else if (file >= 0)
                ::close(file);
        }
    }

    std::string path_;
    NSFileHandle* handle_ = nil;
    int error_ = 0;
    bool isPlaced_ = false;
};

Result<void> replaceFile(const FileURL& url, std::string_view content) {
    const FileURL target = resolvedWriteTarget(url);
    Replacement replacement{target};
    if (!replacement.wasCreated())
        return failure(replacement.error());
    if (auto filled = replacement.fill(content); !filled)
        return filled;
    return replacement.takePlace(target);
}

}

bool FoundationFileSystem::exists(const FileURL& url) const {
    return attemptOr(false, "fileExistsAtPath", [&] {
        return static_cast<bool>(
            [NSFileManager.defaultManager fileExistsAtPath:toNSString(url.path())]);
    });
}

Result<std::string> FoundationFileSystem::read(const FileURL& url, std::size_t maximumBytes) const {
    return attemptOr(Result<std::string>{std::unexpected{raisedError()}}, "readDataUpToLength",
                     [&] { return readFile(url, maximumBytes); });
}

Result<void> FoundationFileSystem::createFolder(const FileURL& url) {
    return attemptOr(Result<void>{std::unexpected{raisedError()}}, "createDirectoryAtURL",
                     [&]() -> Result<void> {
                         NSError* error = nil;
                         if (![NSFileManager.defaultManager
                                        createDirectoryAtURL:toNSURL(url)
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
    return attemptOr(Result<void>{std::unexpected{raisedError()}}, "writeData",
                     [&] { return replaceFile(url, content); });
}

}
