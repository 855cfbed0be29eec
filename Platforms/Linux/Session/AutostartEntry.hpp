/// The text of an entry in an autostart folder: whether a desktop starts it, and how it is switched
/// on and off without losing what its user wrote into it.
#pragma once

#include <optional>
#include <span>
#include <string>

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

/// The same entry, hidden, which stands for deleted.
[[nodiscard]] std::optional<std::string> hidden(const std::string& text);

}
