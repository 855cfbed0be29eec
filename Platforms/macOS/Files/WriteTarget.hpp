/// Which file a write to a URL replaces, where symbolic links may stand in the way.
#pragma once

#include "Foundation/FileURL.hpp"

namespace vireline::macos {

/// As `FollowedLinks` decides.
[[nodiscard]] FileURL resolvedWriteTarget(const FileURL& url);

}
