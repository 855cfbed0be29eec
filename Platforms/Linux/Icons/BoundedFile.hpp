/// Reads files that others wrote: whole, but only regular ones up to a size, and without waiting.
#pragma once

#include <QByteArray>
#include <cstddef>
#include <optional>
#include <string>

namespace vireline::x11::BoundedFile {

[[nodiscard]] std::optional<QByteArray> read(const std::string& path, std::size_t maximumBytes);

}
