/// What writes that were cut off, by a crash or a power cut, have left in a folder.
#pragma once

#include "Foundation/FileURL.hpp"

namespace vireline::macos {

/// Marks a file that is being written as in use until it is closed; other processes wait or leave
/// it alone. Returns whether the file still has a name: it may have been taken for a leftover
/// before it was marked.
[[nodiscard]] bool holdAgainstRemoval(int file);

/// Removes the replacements of the file at `url` that nothing writes to any more. Only what looks
/// in every respect like a file that this program made is touched. Failures are silent.
void removeLeftovers(const FileURL& url);

}
