/// The program's log.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vireline::DevLog {

/// The log file's absolute path, to be set once before the first line. Without one, lines go to
/// standard output only.
void setPath(std::optional<std::string> path);
[[nodiscard]] const std::optional<std::string>& path();

/// Appends a line to the file at the path, creating it if necessary. Failures are silent.
using Appender = void (*)(const std::string& path, std::string_view line);

/// Replaces the default appender, which uses standard C++ only, with one of the platform's.
void setAppender(Appender appender);

/// Writes "[time] message" and a line feed to standard output and appends them to the log file,
/// which is opened and closed each time. Failures are silent.
void write(std::string_view message);

}
