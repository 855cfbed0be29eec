#include "Files/WriteTarget.hpp"

#include "Foundation/FollowedLinks.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <optional>
#include <string>

namespace vireline::macos {
namespace {

/// Does not follow links.
std::optional<struct stat> status(const FileURL& url) {
    struct stat found{};
    if (::lstat(url.path().c_str(), &found) != 0)
        return std::nullopt;
    return found;
}

bool isOwn(const struct stat& found) {
    return found.st_uid == ::geteuid();
}

/// The text of a link that the user owns; nullopt for anything else.
std::optional<std::string> ownLinkAt(const FileURL& url) {
    const auto found = status(url);
    if (!found || !S_ISLNK(found->st_mode) || !isOwn(*found))
        return std::nullopt;
    std::array<char, PATH_MAX> text{};
    const ssize_t length = ::readlink(url.path().c_str(), text.data(), text.size());
    if (length <= 0)
        return std::nullopt;
    return std::string{text.data(), static_cast<std::size_t>(length)};
}

/// Whether the user owns the folder, and the file unless it does not exist yet.
bool isOwnPlace(const FileURL& url) {
    struct stat folder{};
    if (::stat(url.parent().path().c_str(), &folder) != 0 || !S_ISDIR(folder.st_mode) ||
        !isOwn(folder))
        return false;
    const auto found = status(url);
    return found ? S_ISREG(found->st_mode) && isOwn(*found) : errno == ENOENT;
}

}

FileURL resolvedWriteTarget(const FileURL& url) {
    const auto itself = [](const FileURL& at) { return at; };
    return FollowedLinks::target(url, itself, ownLinkAt, isOwnPlace);
}

}
