/// Bounded reads of files that other programs may have written.
#pragma once

#include "Foundation/Result.hpp"

#include <cstddef>
#include <string>

namespace vireline::xdg::BoundedFile {

/// The whole content of a regular file. Fails if it cannot be read, is not a regular file or is
/// longer than `maximumBytes` (EFBIG). Never blocks, whatever the path names.
[[nodiscard]] Result<std::string> read(const std::string& path, std::size_t maximumBytes);

/// The first `maximumBytes` of a file of unknown size, such as those in /proc; empty if it cannot
/// be read.
[[nodiscard]] std::string readStart(const std::string& path, std::size_t maximumBytes);

}
