#include "Peers/Targets.hpp"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>
#include <string_view>

namespace vireline::desktop {
namespace {

constexpr std::string_view plain = "Vireline";
constexpr std::string_view magnified = "Vireline, magnified";

struct Target {
    std::string_view subject;
    Figure figure;
    std::string_view what;
    /// The maximum, relative to the lowest value of the other programs.
    double share = 1;
    std::vector<std::string_view> others;
};

const std::vector<Target>& targets() {
    const std::vector<std::string_view> all{"Plank",       "cairo-dock", "tint2",
                                            "xfce4-panel", "lxqt-panel", "polybar"};
    const std::vector<std::string_view> docks{"Plank", "cairo-dock"};
    const std::vector<std::string_view> full{"Plank", "cairo-dock", "xfce4-panel", "lxqt-panel"};
    constexpr double quarter = 0.25;
    static const std::vector<Target> list{
        {plain, Figure::idleTime, "lowest processor time at rest", 1, all},
        {plain, Figure::pointerTime, "lowest cost under the pointer", 1, all},
        {magnified, Figure::pointerTime,
         "magnified, at most a quarter of the docks' cost under the pointer", quarter, docks},
        {plain, Figure::start, "fastest start of docks and full panels", 1, full},
        {plain, Figure::proportionalMemory, "least memory (PSS) of docks and full panels", 1, full},
        {plain, Figure::privateMemory, "least private memory of docks and full panels", 1, full},
    };
    return list;
}

const Column* find(const std::vector<Column>& columns, std::string_view name) {
    const auto found = std::ranges::find(columns, name, &Column::name);
    return found == columns.end() ? nullptr : &*found;
}

/// The column with the lowest value; null if nothing was measured.
const Column* least(const std::vector<Column>& columns, const Target& target) {
    const Column* best = nullptr;
    for (const auto name : target.others) {
        const Column* const other = find(columns, name);
        if (other != nullptr && !std::isnan(value(other->figures, target.figure)) &&
            (best == nullptr ||
             value(other->figures, target.figure) < value(best->figures, target.figure)))
            best = other;
    }
    return best;
}

void write(std::ostream& out, std::string_view what, double figure, double limit,
           const std::string& against) {
    std::ostringstream numbers;
    numbers << std::fixed << std::setprecision(1) << figure << " against " << limit << against;
    out << "- " << what << ": " << numbers.str() << (figure <= limit ? ", holds" : ", **missed**")
        << '\n';
}

}

void writeTargets(std::ostream& out, const std::vector<Column>& columns) {
    out << '\n';
    for (const Target& target : targets()) {
        const Column* const subject = find(columns, target.subject);
        const Column* const other = least(columns, target);
        if (subject == nullptr || other == nullptr)
            continue;
        const double figure = value(subject->figures, target.figure);
        if (!std::isnan(figure))
            write(out, target.what, figure, target.share * value(other->figures, target.figure),
                  " of " + other->name);
    }
    for (const auto name : {plain, magnified}) {
        const Column* const subject = find(columns, name);
        if (subject == nullptr)
            continue;
        constexpr double megabyte = 1024;
        if (const double wakeUps = value(subject->figures, Figure::idleWakeUps);
            !std::isnan(wakeUps))
            write(out, subject->name + ", wake-ups at rest", wakeUps, 0, "");
        if (const double growth = value(subject->figures, Figure::growth); !std::isnan(growth))
            write(out, subject->name + ", growth in KB", growth, megabyte, "");
    }
    out << '\n';
}

void writeWaylandTargets(std::ostream& out, const std::vector<Column>& columns) {
    const auto figureOf = [&](const std::string& name, Figure figure) {
        const Column* const column = find(columns, name);
        return column == nullptr ? std::nan("") : value(column->figures, figure);
    };
    const auto report = [&](const std::string& what, double figure, double limit,
                            const std::string& against) {
        if (!std::isnan(figure) && !std::isnan(limit))
            write(out, what, figure, limit, against);
    };
    constexpr double pointerShare = 1.5;
    out << '\n';
    for (const auto& name : {std::string{plain}, std::string{magnified}}) {
        const auto onX = [&](Figure figure) { return figureOf(name + ", X11", figure); };
        const auto withPlugin = [&](Figure figure) {
            return onX(figure) + figureOf("Qt alone", figure) - figureOf("Qt alone, X11", figure);
        };
        const std::string plugin = " (X11 plus the cost of Qt's Wayland plugin)";
        report(name + ", start", figureOf(name, Figure::start), withPlugin(Figure::start), plugin);
        report(name + ", memory (PSS)", figureOf(name, Figure::proportionalMemory),
               withPlugin(Figure::proportionalMemory), plugin);
        report(name + ", wake-ups at rest", figureOf(name, Figure::idleWakeUps), 0, "");
        report(name + ", at most one and a half times the cost under the pointer",
               figureOf(name, Figure::pointerTime), pointerShare * onX(Figure::pointerTime),
               " on X11");
    }
    out << '\n';
}

}
