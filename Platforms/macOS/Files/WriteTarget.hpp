/// Decides which file a write to a URL replaces if there are symbolic links.
#pragma once

#include "Foundation/FileURL.hpp"

namespace vireline::macos {

/// Follows links that the user owns to a file that the user owns in a folder that the user owns,
/// since users may keep their settings elsewhere. Any other link is itself replaced.
[[nodiscard]] FileURL resolvedWriteTarget(const FileURL& url);

}
