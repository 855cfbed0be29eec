/// Handles files that another program drags over one dock or drops on it. Owned by the dock's view,
/// which knows the layout.
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
    /// What is under the drag.
    struct Spot {
        /// Null if there is no tile.
        const DockTile* tile = nullptr;
        bool isOnStrip = false;
    };

    explicit DockDrops(const DockActions& actions) : actions_(actions) {}

    /// Called when the drag's target has changed.
    std::function<void()> onChange;

    /// Returns whether the drag contains files.
    bool entered(const std::vector<std::string>& urls);
    /// Returns whether they can be dropped there.
    bool moved(const Spot& over);
    void exited();
    /// Returns whether the drop was accepted.
    bool dropped(const Spot& over);

    /// The tile that would receive the files.
    [[nodiscard]] std::optional<std::uint32_t> target() const noexcept { return target_; }

private:
    void setTarget(std::optional<std::uint32_t> target);

    const DockActions& actions_;
    std::vector<FileURL> files_;
    std::optional<std::uint32_t> target_;
};

}
