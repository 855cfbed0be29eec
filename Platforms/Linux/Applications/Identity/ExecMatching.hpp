/// How well an entry's Exec line explains a running process.
#pragma once

#include "Applications/Entries/DesktopEntryIndex.hpp"
#include "Applications/Identity/ProcessFacts.hpp"

#include <compare>
#include <optional>
#include <string>
#include <vector>

namespace vireline::x11::ExecMatching {

/// A process as entries are held against it.
struct Process {
    ProcessFacts facts;
    AppCommand command;
    /// Those of the command line, sorted: either side may have thousands.
    std::vector<std::string> sortedArguments;
    /// Paths and names under which its program may stand in an Exec line.
    std::vector<std::string> programs;
};

[[nodiscard]] Process prepared(const ProcessFacts& facts);

/// Greater is better; compared member by member.
struct Quality {
    /// 3: the same path or sandbox; 2: the same name; 1: the same name in another folder, or a
    /// hint.
    int program = 0;
    int presentArguments = 0;
    /// Options of the Exec line that the process does not have, as a negative number.
    int missingOptions = 0;

    auto operator<=>(const Quality&) const = default;
};

/// Nothing when the entry cannot have started the process, or when only a window's class can tell,
/// as with pages that a browser shows as apps and with what runs in a terminal.
[[nodiscard]] std::optional<Quality> quality(const IndexedEntry& entry, const Process& process);

/// Whether the entry is an interpreter's own while the process runs a script: the script is another
/// app, even if its window bears the interpreter's class.
[[nodiscard]] bool isInterpreterOfScript(const IndexedEntry& entry, const Process& process);

}
