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

namespace vireline::xdg {
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

/// The status of the target itself, without following links.
std::optional<struct stat> status(const WriteTarget& target) {
    struct stat found{};
    if (::fstatat(target.folder.get(), target.name.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return found;
}

/// The target of a link owned by the user; nullopt for anything else.
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

/// Whether a file owned by the user exists, or can be created, in a folder owned by the user.
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
