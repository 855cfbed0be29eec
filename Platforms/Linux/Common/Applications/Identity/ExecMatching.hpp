/// Rates how well an entry's Exec line explains a running process.
#pragma once

#include "Applications/Entries/DesktopEntryIndex.hpp"
#include "Applications/Identity/ProcessFacts.hpp"

#include <compare>
#include <optional>
#include <string>
#include <vector>

namespace vireline::xdg::ExecMatching {

/// A process, prepared for matching entries against it.
struct Process {
    ProcessFacts facts;
    AppCommand command;
    /// The arguments, sorted: either side may have thousands.
    std::vector<std::string> sortedArguments;
    /// Paths and names under which the program may appear in an Exec line.
    std::vector<std::string> programs;
};

[[nodiscard]] Process prepared(const ProcessFacts& facts);

/// Higher is better; compared member by member.
struct Quality {
    /// 3 for the same path or sandbox, 2 for the same name, 1 for the same name in another folder
    /// or for a weak hint.
    int program = 0;
    int presentArguments = 0;
    /// Options in the Exec line that the process does not have, negated.
    int missingOptions = 0;

    auto operator<=>(const Quality&) const = default;
};

/// nullopt if the entry cannot have started the process, or if only the window's class can tell, as
/// with web pages that a browser shows as apps and programs that run in a terminal.
[[nodiscard]] std::optional<Quality> quality(const IndexedEntry& entry, const Process& process);

/// Whether the entry is an interpreter's own while the process runs a script. The script is a
/// separate app, even if its window has the interpreter's class.
[[nodiscard]] bool isInterpreterOfScript(const IndexedEntry& entry, const Process& process);

}
