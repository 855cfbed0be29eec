/// The order of the tiles and the length of the strip that holds them. Lengths are points along the
/// dock's axis.
#pragma once

#include "Model/DockItem.hpp"

#include <span>
#include <vector>

namespace vireline::DockOrdering {

/// How many tiles of each group a strip holds.
struct Counts {
    int pinned = 0;
    int unpinnedRunning = 0;
    /// Downloads and Trash, which every dock has room for.
    int utility = 2;

    /// Of the app tiles.
    [[nodiscard]] static Counts of(std::span<const DockItem> items);

    [[nodiscard]] int tiles() const;
    /// One before the running group and one before the utility group, where those hold anything.
    [[nodiscard]] int separators() const noexcept;

    bool operator==(const Counts&) const = default;
};

/// All pinned apps in their order, then the running ones that are not pinned in theirs. Neither
/// list is de-duplicated against itself. A pinned app keeps its pinned name and location.
[[nodiscard]] std::vector<DockItem> merge(std::span<const AppRef> pinned,
                                          std::span<const AppRef> running);

/// What separators, gaps and end paddings take, whatever the icon size.
[[nodiscard]] double overhead(const Counts& counts);

/// The length of a strip with icons of this size; 0 without tiles.
[[nodiscard]] double stripWidth(const Counts& counts, double iconSize);

/// The largest whole icon size that fits, but at least 16 and at most `maxIconSize`.
[[nodiscard]] double fittedIconSize(const Counts& counts, double availableWidth,
                                    double maxIconSize);

}
