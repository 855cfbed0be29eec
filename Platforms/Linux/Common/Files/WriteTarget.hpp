/// Determines which file a write to a URL replaces if there are symbolic links in its way.
#pragma once

#include "Files/FileDescriptor.hpp"
#include "Foundation/FileURL.hpp"

#include <string>

namespace vireline::xdg {

struct WriteTarget {
    /// Kept open, so that the folder cannot be swapped in between.
    FileDescriptor folder;
    /// The file's name in that folder.
    std::string name;
    /// 0, or the errno value from opening the folder.
    int error = 0;
};

/// Where a write to `url` goes; `FollowedLinks` decides which symbolic links are followed.
[[nodiscard]] WriteTarget resolvedWriteTarget(const FileURL& url);

}
