/// File operations as other programs perform them, for tests of file watching.
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

/// Creates the file or overwrites it in place.
inline void overwrite(const FileURL& file, std::string_view content) {
    std::ofstream{file.path(), std::ios::binary | std::ios::trunc} << content;
}

/// Writes a temporary file and renames it over the target.
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

/// Gives the file to another user; if it is a link, the link itself. Requires root.
inline void giveAway(const FileURL& url) {
    constexpr uid_t nobody = 65534;
    if (::lchown(url.path().c_str(), nobody, static_cast<gid_t>(-1)) != 0)
        throw std::system_error{errno, std::generic_category(), url.path()};
}

inline void rename(const FileURL& from, const FileURL& to) {
    std::filesystem::rename(from.path(), to.path());
}

}
