/// Captures the program's log line by line before it reaches a file. The log is global, so every
/// run has its own process.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::storm {

/// Starts keeping log lines in memory.
void captureLog();

/// The lines since they were last taken, as they would appear in the file.
[[nodiscard]] const std::vector<std::string>& loggedLines();

/// Returns the lines and clears them.
[[nodiscard]] std::vector<std::string> takeLoggedLines();

/// The message in a line "[2025-03-14T09:26:53Z] message"; nullopt if it has another format.
[[nodiscard]] std::optional<std::string> messageOf(std::string_view line);

/// Whether the text matches the pattern, in which "*" stands for anything.
[[nodiscard]] bool matches(std::string_view text, std::string_view pattern);

}
