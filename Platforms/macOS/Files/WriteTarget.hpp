/// Decides which file a write to a URL replaces if there are symbolic links.
#pragma once

#include "Foundation/FileURL.hpp"

namespace vireline::macos {

/// As `FollowedLinks` decides.
[[nodiscard]] FileURL resolvedWriteTarget(const FileURL& url);

}
