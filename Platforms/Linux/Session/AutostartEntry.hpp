/// The text of an entry in an autostart folder: whether a desktop starts it, and how it is switched
/// on and off without losing what its user wrote into it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireline::x11::AutostartEntry {

/// A new entry for the program at an absolute path.
[[nodiscard]] std::string make(const std::string& programPath);

/// Whether it is still as `make` wrote it, for this program or for one at another path.
[[nodiscard]] bool isUnedited(const std::string& text);

/// Whether it is an entry at all: of type Application, with a command line.
[[nodiscard]] bool isValid(const std::string& text);

/// Whether a desktop of these names starts it: it is valid, not hidden, not switched off, and meant
/// for that desktop.
[[nodiscard]] bool isEnabled(const std::string& text, std::span<const std::string> desktopNames);

/// The same entry with nothing in it that keeps such a desktop from starting it. Nothing for what
/// is no valid entry, or is one that repeats itself without end.
[[nodiscard]] std::optional<std::string> enabled(const std::string& text,
                                                 std::span<const std::string> desktopNames);

/// The programs that have to be there for the entry to start anything, as words of a command line:
/// the one that it starts, and the one that it asks for in TryExec. None for what is no valid
/// entry.
[[nodiscard]] std::vector<std::string> neededPrograms(const std::string& text);

/// The same entry, starting the program at this absolute path. The arguments stay if it is only at
/// another place than the one before. Nothing for what is no valid entry.
[[nodiscard]] std::optional<std::string> withProgram(const std::string& text,
                                                     const std::string& programPath);

/// The same entry, hidden, which stands for deleted.
[[nodiscard]] std::optional<std::string> hidden(const std::string& text);

}
