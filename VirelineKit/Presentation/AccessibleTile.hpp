/// A tile as assistive technology presents it: a button with a name, and for an app whether it
/// runs.
#pragma once

#include "Foundation/Geometry.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace vireline {

struct AccessibleTile {
    /// Names the tile for as long as it stays in the strip; the owner of its nodes in the scene.
    std::uint32_t id = 0;
    std::string label;
    /// Nothing for a tile that is no app.
    std::optional<std::string> value;
    /// The view's coordinates, without what is only movement.
    Rect frame;
    bool hasMenu = false;

    bool operator==(const AccessibleTile&) const = default;
};

}
