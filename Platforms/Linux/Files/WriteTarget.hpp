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

/// Follows links of the user's own, which people have who keep their settings elsewhere, to a file
/// of their own in a folder of their own. A link that leads to anything else is itself what is
/// replaced.
[[nodiscard]] WriteTarget resolvedWriteTarget(const FileURL& url);

}
