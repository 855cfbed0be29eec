/// Determines which changes of a scene assistive technology must be notified of.
#pragma once

#include "Presentation/Scene.hpp"

#include <cstdint>
#include <vector>

namespace vireline::macos {

/// What assistive technology can notice of a scene: the tiles in their order, and which of their
/// apps are running.
struct AccessibleScene {
    std::vector<std::uint32_t> tiles;
    std::vector<std::uint32_t> running;

    bool operator==(const AccessibleScene&) const = default;

    /// Orders tiles by position, not by painting order: a dragged tile is painted last.
    [[nodiscard]] static AccessibleScene of(const Scene& scene);

    /// The tiles whose apps have started or stopped running, in order.
    [[nodiscard]] std::vector<std::uint32_t> changedSince(const AccessibleScene& before) const;
};

}
