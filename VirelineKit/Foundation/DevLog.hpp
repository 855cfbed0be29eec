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

/// How a line gets into the file at the path: behind what is there, as a new file if nothing is.
/// Failures are silent.
using Appender = void (*)(const std::string& path, std::string_view line);

/// For a platform that can do better than standard C++, which is what lines are appended with at
/// first.
void setAppender(Appender appender);

/// Writes "[time] message" with a line feed to standard output and appends it to the log file.
/// Opens and closes the file each time; failures are silent.
void write(std::string_view message);

}
