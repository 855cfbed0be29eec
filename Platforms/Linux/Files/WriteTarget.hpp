/// Which file a write to a URL replaces, where symbolic links may stand in the way.
#pragma once

#include "Files/FileDescriptor.hpp"
#include "Foundation/FileURL.hpp"

#include <string>

namespace vireline::x11 {

struct WriteTarget {
    /// Kept open, so that nobody can put another folder in its place.
    FileDescriptor folder;
    /// The file's name there.
    std::string name;
    /// Why the folder could not be opened; 0 if it could.
    int error = 0;
};

/// As `FollowedLinks` decides.
[[nodiscard]] WriteTarget resolvedWriteTarget(const FileURL& url);

}
