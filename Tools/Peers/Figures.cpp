#include "Peers/Figures.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <limits>
#include <numeric>
#include <sstream>
#include <string_view>

namespace vireline::desktop {
namespace {

struct Row {
    Figure figure;
    std::string_view name;
    int decimals = 0;
    /// The number of runs over which the total is spread; 0 if each run counts on its own.
    int runsInWhole = 0;
};

constexpr int usualRuns = 5;
constexpr std::array rows{
    Row{Figure::start, "exec to the first dock on the screen, ms"},
    Row{Figure::residentMemory, "resident memory after 5 s, MB", 1},
    Row{Figure::proportionalMemory, "… shared pages by their share (PSS), MB", 1},
    Row{Figure::privateMemory, "… private pages, MB", 1},
    Row{Figure::idleTime, "processor time in 20 s at rest, ms", 1, usualRuns},
    Row{Figure::idleWakeUps, "wake-ups in 20 s at rest", 0, usualRuns},
    Row{Figure::pointerTime, "processor time for 1,000 pointer steps, ms"},
    Row{Figure::pointerServerTime, "… the X server's or compositor's, ms"},
    Row{Figure::windowsTime, "processor time for 100 windows, ms"},
    Row{Figure::displaysTime, "processor time for 20 display changes, ms", 0, usualRuns},
    Row{Figure::growth, "growth over 1,000 launches and exits, KB"},
};

double median(std::vector<double> values) {
    std::ranges::sort(values);
    const auto middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle]
                                  : std::midpoint(values[middle - 1], values[middle]);
}

double factor(const Row& row) {
    return row.runsInWhole == 0 ? 1 : row.runsInWhole;
}

double value(const Row& row, const std::vector<double>& values) {
    if (values.empty())
        return std::numeric_limits<double>::quiet_NaN();
    if (row.runsInWhole == 0)
        return median(values);
    const double sum = std::accumulate(values.begin(), values.end(), 0.0);
    return sum / static_cast<double>(values.size()) * factor(row);
}

std::string number(double value, int decimals) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(decimals) << value;
    return text.str() == "-0" ? "0" : text.str();
}

/// For example "63 (61–70)".
std::string cell(const Row& row, const Figures& figures) {
    const auto found = figures.find(row.figure);
    if (found == figures.end() || found->second.empty())
        return "";
    const auto& values = found->second;
    const auto [least, greatest] = std::ranges::minmax(values);
    auto text = number(value(row, values), row.decimals);
    const auto from = number(least * factor(row), row.decimals);
    const auto to = number(greatest * factor(row), row.decimals);
    if (values.size() > 1 && from != to)
        text += " (" + from + "–" + to + ")";
    return text;
}

void writeLine(std::ostream& out, std::string_view first, const std::vector<std::string>& cells) {
    out << "| " << first << " |";
    for (const auto& text : cells)
        out << ' ' << text << " |";
    out << '\n';
}

}

double value(const Figures& figures, Figure figure) {
    const auto row = std::ranges::find(rows, figure, &Row::figure);
    const auto found = figures.find(figure);
    return value(*row, found == figures.end() ? std::vector<double>{} : found->second);
}

void writeTable(std::ostream& out, const std::vector<Column>& columns) {
    std::vector<std::string> names;
    names.reserve(columns.size());
    for (const auto& column : columns)
        names.push_back(column.name + (column.version.empty() ? "" : " " + column.version));
    writeLine(out, "", names);
    out << "|---|";
    for (std::size_t i = 0; i < columns.size(); ++i)
        out << "---:|";
    out << '\n';
    for (const Row& row : rows) {
        std::vector<std::string> cells;
        cells.reserve(columns.size());
        for (const auto& column : columns)
            cells.push_back(cell(row, column.figures));
        const bool isMeasured =
            std::ranges::any_of(cells, [](const auto& text) { return !text.empty(); });
        if (isMeasured)
            writeLine(out, row.name, cells);
    }
}

}
