/// What every dock shows. All panels share the one instance; its owner feeds it.
#pragma once

#include "Foundation/Observable.hpp"
#include "Model/DockItem.hpp"
#include "Model/DockMetrics.hpp"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace vireline {

class DockViewModel {
public:
    /// App tiles, the pinned first, then the unpinned running.
    Observable<std::vector<DockItem>> items;
    /// Points; the largest size that a tile may take.
    Observable<double> configuredIconSize{DockMetrics::iconSize};
    /// The factor under the pointer; 1 is off.
    Observable<double> magnification{1.0};
    /// Bundle identifiers of apps that are launching and have not settled.
    Observable<std::set<std::string>> launching;

    /// Called by the owner when the number of tiles changed.
    std::function<void()> onLayoutChange;

    [[nodiscard]] std::vector<DockItem> pinnedItems() const;
    [[nodiscard]] std::vector<DockItem> unpinnedItems() const;
};

}
