/// Bounded reads of small files that other programs wrote.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace vireline::xdg::BoundedFile {

/// The whole content of a regular file; nullopt if it cannot be read, is not a regular file or is
/// longer than `maximumBytes`. Never blocks, whatever the path names.
[[nodiscard]] std::optional<std::string> read(const std::string& path, std::size_t maximumBytes);

/// The first `maximumBytes` of a file of unknown size, such as those in /proc; empty if it cannot
/// be read.
[[nodiscard]] std::string readStart(const std::string& path, std::size_t maximumBytes);

}
