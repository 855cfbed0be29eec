/// Reading small files that others wrote.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace vireline::x11::BoundedFile {

/// A regular file's whole content; nothing when it cannot be read, is of another kind or is longer
/// than `maximumBytes`. Never waits, whatever the path names.
[[nodiscard]] std::optional<std::string> read(const std::string& path, std::size_t maximumBytes);

/// The first `maximumBytes` of a file whose size is not known before, as below /proc; empty when it
/// cannot be read.
[[nodiscard]] std::string readStart(const std::string& path, std::size_t maximumBytes);

}
