/// Edits the text of an autostart entry: whether a desktop starts it, and switching it on and off
/// without losing what the user has written into it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireline::xdg::AutostartEntry {

/// A new entry for the program at an absolute path.
[[nodiscard]] std::string make(const std::string& programPath);

/// Whether it is exactly as `make` wrote it, for this program or for one at another path.
[[nodiscard]] bool isUnedited(const std::string& text);

/// Whether it is a valid entry: of type Application, with a command line.
[[nodiscard]] bool isValid(const std::string& text);

/// Whether a desktop with these names starts it: it is valid, not hidden or disabled, and not
/// restricted to other desktops.
[[nodiscard]] bool isEnabled(const std::string& text, std::span<const std::string> desktopNames);

/// The same entry without anything that keeps such a desktop from starting it. nullopt if the entry
/// is invalid or has too many duplicate keys.
[[nodiscard]] std::optional<std::string> enabled(const std::string& text,
                                                 std::span<const std::string> desktopNames);

/// The programs that must exist for the entry to start anything, as they appear in it: the one in
/// its Exec line and the one in TryExec. Empty if the entry is invalid.
[[nodiscard]] std::vector<std::string> neededPrograms(const std::string& text);

/// The same entry, but starting the program at this absolute path. Its arguments are kept if only
/// the program's location changed. nullopt if the entry is invalid.
[[nodiscard]] std::optional<std::string> withProgram(const std::string& text,
                                                     const std::string& programPath);

/// The same entry with Hidden=true, which means "deleted".
[[nodiscard]] std::optional<std::string> hidden(const std::string& text);

}
