#include "Files/WriteTarget.hpp"

#include "Foundation/FollowedLinks.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <optional>
#include <utility>

namespace vireline::x11 {
namespace {

WriteTarget targetAt(const FileURL& url) {
    WriteTarget target{.folder = {}, .name = url.lastPathComponent()};
    do {
        target.folder =
            FileDescriptor{::open(url.parent().path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
        target.error = target.folder ? 0 : errno;
    } while (target.error == EINTR);
    return target;
}

bool isOwn(const struct stat& found) {
    return found.st_uid == ::geteuid();
}

/// What stands at the target itself, not where that leads.
std::optional<struct stat> status(const WriteTarget& target) {
    struct stat found{};
    if (::fstatat(target.folder.get(), target.name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return found;
}

/// The text of a link that is the user's own; nothing for whatever else is there.
std::optional<std::string> ownLinkAt(const WriteTarget& target) {
    if (target.error != 0)
        return std::nullopt;
    const auto found = status(target);
    if (!found || !S_ISLNK(found->st_mode) || !isOwn(*found))
        return std::nullopt;
    std::array<char, PATH_MAX> text{};
    const ssize_t length =
        ::readlinkat(target.folder.get(), target.name.c_str(), text.data(), text.size());
    if (length <= 0)
        return std::nullopt;
    return std::string{text.data(), static_cast<std::size_t>(length)};
}

/// Whether a file of the user's own is there, or can be put there, in a folder of the user's own.
bool isOwnPlace(const WriteTarget& target) {
    struct stat folder{};
    if (target.error != 0 || ::fstat(target.folder.get(), &folder) != 0 || !isOwn(folder))
        return false;
    const auto found = status(target);
    return found ? S_ISREG(found->st_mode) && isOwn(*found) : errno == ENOENT;
}

}

WriteTarget resolvedWriteTarget(const FileURL& url) {
    return FollowedLinks::target(url, targetAt, ownLinkAt, isOwnPlace);
}

}
