/// Files that another program drags over one dock, and what becomes of them where they are dropped.
/// Owned by the dock's view, which knows what lies where.
#pragma once

#include "Foundation/FileURL.hpp"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vireline {

struct DockActions;
struct DockTile;

class DockDrops {
public:
    /// What lies under the drag.
    struct Spot {
        /// Null between and beside the tiles.
        const DockTile* tile = nullptr;
        bool isOnStrip = false;
    };

    explicit DockDrops(const DockActions& actions) : actions_(actions) {}

    /// The drag has another target, or none any more.
    std::function<void()> onChange;

    /// Tells whether the drag brings files.
    bool entered(const std::vector<std::string>& urls);
    /// Tells whether they can be dropped there.
    bool moved(const Spot& over);
    void exited();
    /// Tells whether they were taken.
    bool dropped(const Spot& over);

    /// The tile that the files would go to.
    [[nodiscard]] std::optional<std::uint32_t> target() const noexcept { return target_; }

private:
    void setTarget(std::optional<std::uint32_t> target);

    const DockActions& actions_;
    std::vector<FileURL> files_;
    std::optional<std::uint32_t> target_;
};

}
