/// What a program's private memory consists of: libraries by their families, data by its kind.
#pragma once

#include <sys/types.h>

#include <map>
#include <ostream>
#include <span>
#include <string>
#include <vector>

namespace vireline::desktop {

/// Kilobytes.
struct MemoryPart {
    long resident = 0;
    long proportional = 0;
    long own = 0;
};

struct MemoryOf {
    std::string name;
    std::map<std::string, MemoryPart> parts;
};

/// Of all these processes together, by families such as "Qt".
[[nodiscard]] std::map<std::string, MemoryPart> memoryParts(std::span<const pid_t> pids);

/// As a table in Markdown: the parts' shared and private pages, a column for each program.
void writeMemoryParts(std::ostream& out, const std::vector<MemoryOf>& programs);

}
