/// The figures of all programs and runs, and the table made from them.
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

/// One value per run.
using Figures = std::map<Figure, std::vector<double>>;

struct Column {
    std::string name;
    std::string version;
    Figures figures;
};

/// The value for all runs: their median, or their total if the measurement is spread over them.
[[nodiscard]] double value(const Figures& figures, Figure figure);

/// Writes a Markdown table with a line for each figure, including the minimum and maximum of its
/// runs.
void writeTable(std::ostream& out, const std::vector<Column>& columns);

}
