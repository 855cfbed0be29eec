/// The order of the tiles and the length of the strip that contains them. Lengths are in points
/// along the dock's axis.
#pragma once

#include "Model/DockItem.hpp"

#include <span>
#include <vector>

namespace vireline::DockOrdering {

/// The number of tiles in each group of a strip.
struct Counts {
    int pinned = 0;
    int unpinnedRunning = 0;
    /// Downloads and Trash, which every dock has room for.
    int utility = 2;

    /// Counts the app tiles.
    [[nodiscard]] static Counts of(std::span<const DockItem> items);

    [[nodiscard]] int tiles() const;
    /// One before the running group and one before the utility group, unless that group is empty.
    [[nodiscard]] int separators() const noexcept;

    bool operator==(const Counts&) const = default;
};

/// All pinned apps, then the running apps that are not pinned, both in their order. Duplicates
/// within a list are kept. A pinned app keeps the name and the location from the pinned list.
[[nodiscard]] std::vector<DockItem> merge(std::span<const AppRef> pinned,
                                          std::span<const AppRef> running);

/// The length of separators, gaps and end paddings, which does not depend on the icon size.
[[nodiscard]] double overhead(const Counts& counts);

/// The length of a strip with icons of this size; 0 if there are no tiles.
[[nodiscard]] double stripWidth(const Counts& counts, double iconSize);

/// The largest integral icon size that fits, but at least 16 and at most `maxIconSize`.
[[nodiscard]] double fittedIconSize(const Counts& counts, double availableWidth,
                                    double maxIconSize);

}
