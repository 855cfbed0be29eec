/// The contents of every dock. All panels share one instance, which the application delegate
/// updates.
#pragma once

#include "Foundation/Observable.hpp"
#include "Model/DockItem.hpp"
#include "Model/DockMetrics.hpp"
#include "Presentation/TileStatus.hpp"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vireline {

class DockViewModel {
public:
    /// App tiles: the pinned apps, then the running apps that are not pinned.
    Observable<std::vector<DockItem>> items;
    /// The largest size of a tile at rest, in points.
    Observable<double> configuredIconSize{DockMetrics::iconSize};
    /// The factor under the pointer; 1 means off.
    Observable<double> magnification{1.0};
    /// Bundle identifiers of apps that are launching.
    Observable<std::set<std::string>> launching;
    /// What apps announce, by bundle identifier.
    Observable<std::map<std::string, TileStatus>> statuses;
    /// Apps that want the user's attention, and those that have just begun to.
    Observable<std::set<std::string>> marked;
    Observable<std::set<std::string>> bobbing;

    /// Called by the owner when the number of tiles or separators has changed.
    std::function<void()> onLayoutChange;

    [[nodiscard]] std::vector<DockItem> pinnedItems() const;
    [[nodiscard]] std::vector<DockItem> unpinnedItems() const;
};

}
