#include "Model/DockOrdering.hpp"

#include "Displays/DockMetrics.hpp"
#include "Foundation/Require.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace vireline::DockOrdering {
namespace {

using Identifiers = std::unordered_set<std::string_view>;

/// Views into `apps`.
Identifiers identifiers(std::span<const AppRef> apps) {
    Identifiers found;
    found.reserve(apps.size());
    for (const AppRef& app : apps)
        found.insert(app.bundleID);
    return found;
}

}

int Counts::tiles() const {
    const std::int64_t sum = std::int64_t{pinned} + unpinnedRunning + utility;
    require(std::in_range<int>(sum), "the number of tiles fits an int");
    return static_cast<int>(sum);
}

int Counts::separators() const noexcept {
    return (unpinnedRunning > 0 ? 1 : 0) + (utility > 0 ? 1 : 0);
}

std::vector<DockItem> merge(std::span<const AppRef> pinned, std::span<const AppRef> running) {
    const Identifiers pinnedIDs = identifiers(pinned);
    const Identifiers runningIDs = identifiers(running);

    std::vector<DockItem> items;
    items.reserve(pinned.size() + running.size());
    for (const AppRef& app : pinned) {
        const bool isRunning = runningIDs.contains(app.bundleID);
        items.push_back({app.bundleID, app.name, app.url, true, isRunning});
    }
    for (const AppRef& app : running) {
        if (!pinnedIDs.contains(app.bundleID))
            items.push_back({app.bundleID, app.name, app.url, false, true});
    }
    return items;
}

double overhead(const Counts& counts) {
    const double tiles = counts.tiles();
    const double separators = counts.separators();
    return DockMetrics::iconSpacing * (tiles + separators - 1) +
           DockMetrics::separatorWidth * separators + 2 * DockMetrics::stripPadding;
}

double stripWidth(const Counts& counts, double iconSize) {
    const int tiles = counts.tiles();
    return tiles < 1 ? 0 : iconSize * tiles + overhead(counts);
}

double fittedIconSize(const Counts& counts, double availableWidth, double maxIconSize) {
    const int tiles = counts.tiles();
    if (tiles < 1)
        return maxIconSize;
    const double fitting = std::floor((availableWidth - overhead(counts)) / tiles);
    return std::min(std::max(fitting, DockMetrics::minIconSize), maxIconSize);
}

}
