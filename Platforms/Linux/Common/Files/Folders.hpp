/// Whether a folder exists.
#pragma once

#include "Foundation/FileURL.hpp"

#include <sys/stat.h>

namespace vireline::xdg {

/// Follows symbolic links.
[[nodiscard]] inline bool isFolder(const FileURL& url) {
    struct stat found{};
    return ::stat(url.path().c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

}
