/// The figures of all runs of all programs, and the table that is made of them.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace vireline::desktop {

/// In the table's order.
enum class Figure : std::uint8_t {
    start,
    residentMemory,
    proportionalMemory,
    privateMemory,
    idleTime,
    idleWakeUps,
    pointerTime,
    pointerServerTime,
    windowsTime,
    displaysTime,
    growth,
};

/// One value a run.
using Figures = std::map<Figure, std::vector<double>>;

struct Column {
    std::string name;
    std::string version;
    Figures figures;
};

/// The value that stands for all runs: their median, or what they make together of that which is
/// spread over the runs.
[[nodiscard]] double value(const Figures& figures, Figure figure);

/// As a table in Markdown: a line for each figure, each with the least and the greatest of its
/// runs.
void writeTable(std::ostream& out, const std::vector<Column>& columns);

}
