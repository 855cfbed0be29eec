/// The program's log, caught line by line before it reaches a file. One process, one log: a storm
/// runs in a process of its own.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::storm {

/// From now on lines are kept in memory.
void captureLog();

/// The lines since they were last taken, as they would stand in the file.
[[nodiscard]] const std::vector<std::string>& loggedLines();

/// The same, which are forgotten.
[[nodiscard]] std::vector<std::string> takeLoggedLines();

/// The message of a line "[2025-03-14T09:26:53Z] message"; nothing if it has another form.
[[nodiscard]] std::optional<std::string> messageOf(std::string_view line);

/// Whether the text is what the pattern says, in which "*" stands for anything.
[[nodiscard]] bool matches(std::string_view text, std::string_view pattern);

}
