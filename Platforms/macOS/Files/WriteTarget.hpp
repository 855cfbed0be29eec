/// Decides which file a write to a URL replaces if there are symbolic links.
#pragma once

#include "Foundation/FileURL.hpp"

namespace vireline::macos {

/// The file that `FollowedLinks` selects.
[[nodiscard]] FileURL resolvedWriteTarget(const FileURL& url);

}
