/// Which changes of a scene assistive technology has to be told of.
#pragma once

#include "Presentation/Scene.hpp"

#include <cstdint>
#include <vector>

namespace vireline::macos {

/// What of a scene assistive technology can notice: which tiles there are, in which order, and
/// which of them run.
struct AccessibleScene {
    std::vector<std::uint32_t> tiles;
    std::vector<std::uint32_t> running;

    bool operator==(const AccessibleScene&) const = default;

    /// A dragged tile is painted last and keeps its place, so the order is that of the places.
    [[nodiscard]] static AccessibleScene of(const Scene& scene);

    /// The tiles that have begun or ceased to run, in order.
    [[nodiscard]] std::vector<std::uint32_t> changedSince(const AccessibleScene& before) const;
};

}
