#include "Model/DockOrdering.hpp"

#include "Foundation/Require.hpp"
#include "Model/DockMetrics.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace vireline::DockOrdering {
namespace {

DockItem item(const AppRef& app, bool isPinned, bool isRunning) {
    return {app.bundleID, app.name, app.url, isPinned, isRunning};
}

}

Counts Counts::of(std::span<const DockItem> items) {
    const auto pinned = static_cast<int>(std::ranges::count_if(items, &DockItem::isPinned));
    return {.pinned = pinned, .unpinnedRunning = static_cast<int>(items.size()) - pinned};
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
    // Hashes each app once, by one insertion or one look-up: hashing dominates the cost of a merge.
    std::unordered_map<std::string_view, bool> isRunningByID;
    isRunningByID.reserve(pinned.size());
    std::vector<const bool*> isPinnedRunning;
    isPinnedRunning.reserve(pinned.size());
    for (const AppRef& app : pinned)
        isPinnedRunning.push_back(&isRunningByID.try_emplace(app.bundleID, false).first->second);

    std::vector<const AppRef*> unpinned;
    unpinned.reserve(running.size());
    for (const AppRef& app : running) {
        if (const auto found = isRunningByID.find(app.bundleID); found != isRunningByID.end())
            found->second = true;
        else
            unpinned.push_back(&app);
    }

    std::vector<DockItem> items;
    items.reserve(pinned.size() + unpinned.size());
    for (std::size_t i = 0; i < pinned.size(); ++i)
        items.push_back(item(pinned[i], true, *isPinnedRunning[i]));
    for (const AppRef* app : unpinned)
        items.push_back(item(*app, false, true));
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
