/// Removes temporary files that were left in a folder by writes that a crash or a power cut
/// interrupted.
#pragma once

#include "Foundation/FileURL.hpp"

namespace vireline::macos {

/// Locks a temporary file until it is closed, so that other processes do not remove it. Returns
/// whether the file still has a name: it may have been removed as a leftover before it was locked.
[[nodiscard]] bool holdAgainstRemoval(int file);

/// Removes the temporary files for `url` that no process has locked. Touches only files that have
/// the name, type, owner and mode of those that this program creates. Failures are silent.
void removeLeftovers(const FileURL& url);

}
