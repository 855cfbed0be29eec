/// A breakdown of a program's private memory: libraries by family, data by kind.
#pragma once

#include <sys/types.h>

#include <map>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace vireline::desktop {

/// In kilobytes.
struct MemoryPart {
    long resident = 0;
    long proportional = 0;
    long own = 0;
};

struct MemoryOf {
    std::string name;
    std::map<std::string, MemoryPart> parts;
};

/// The total over all these processes, by family, such as "Qt".
[[nodiscard]] std::map<std::string, MemoryPart> memoryParts(std::span<const pid_t> pids);

/// Writes a Markdown table of the parts' shared and private pages, with a column for each program.
void writeMemoryParts(std::ostream& out, const std::vector<MemoryOf>& programs);

}
