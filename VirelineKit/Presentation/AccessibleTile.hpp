/// A tile as assistive technology presents it: a button with a name and, for an app, whether it is
/// running.
#pragma once

#include "Foundation/Geometry.hpp"

#include <cstdint>
#include <optional>
#include <string>

namespace vireline {

struct AccessibleTile {
    /// Identifies the tile for as long as it stays in the strip; equals the `owner` of its nodes in
    /// the scene.
    std::uint32_t id = 0;
    std::string label;
    /// nullopt for a tile that is not an app.
    std::optional<std::string> value;
    /// In the view's coordinates, without animation offsets.
    Rect frame;
    bool hasMenu = false;

    bool operator==(const AccessibleTile&) const = default;
};

}
