/// What other programs do to files, for tests that watch them.
#pragma once

#include "Foundation/FileURL.hpp"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace vireline::test {

inline FileURL urlOf(const std::filesystem::path& path) {
    return FileURL::fromPath(path.string());
}

/// Creates the file or writes over it in place.
inline void overwrite(const FileURL& file, std::string_view content) {
    std::ofstream{file.path(), std::ios::binary | std::ios::trunc} << content;
}

/// Writes beside the file and renames that over it.
inline void replaceByRename(const FileURL& file, std::string_view content) {
    const FileURL beside = FileURL::fromPath(file.path() + ".new");
    overwrite(beside, content);
    std::filesystem::rename(beside.path(), file.path());
}

inline void makeFolder(const FileURL& folder) {
    std::filesystem::create_directories(folder.path());
}

inline void removeAll(const FileURL& url) {
    std::filesystem::remove_all(url.path());
}

/// Makes it another user's, and if it is a link, the link. For root only.
inline void giveAway(const FileURL& url) {
    constexpr uid_t nobody = 65534;
    if (::lchown(url.path().c_str(), nobody, static_cast<gid_t>(-1)) != 0)
        throw std::system_error{errno, std::generic_category(), url.path()};
}

inline void rename(const FileURL& from, const FileURL& to) {
    std::filesystem::rename(from.path(), to.path());
}

}
