/// The program's one diagnostic channel.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vireline::DevLog {

/// The log file's absolute path; set once before the first line. While there is none, lines go to
/// standard output only.
void setPath(std::optional<std::string> path);
[[nodiscard]] const std::optional<std::string>& path();

/// Writes "[time] message" with a line feed to standard output and appends it to the log file.
/// Opens and closes the file each time; failures are silent.
void write(std::string_view message);

}
