/// Cleans up the temporary files of writes that were interrupted by a crash or a power failure.
#pragma once

#include <string_view>

namespace vireline::xdg {

/// Locks a file that is being written until it is closed, so that other processes do not remove it
/// as a leftover. Returns whether the file still has a name: another process may have removed it
/// before it was locked.
[[nodiscard]] bool holdAgainstRemoval(int file);

/// Removes abandoned replacement files for `name`. Only files that look in every respect like this
/// program's own are removed. Errors are ignored.
void removeLeftovers(int folder, std::string_view name);

}
