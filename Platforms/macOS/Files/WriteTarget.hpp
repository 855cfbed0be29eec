/// Which file a write to a URL replaces, where symbolic links may stand in the way.
#pragma once

#include "Foundation/FileURL.hpp"

namespace vireline::macos {

/// Follows links of the user's own, which people have who keep their settings elsewhere, to a file
/// of their own in a folder of their own. A link that leads to anything else is itself what is
/// replaced.
[[nodiscard]] FileURL resolvedWriteTarget(const FileURL& url);

}
