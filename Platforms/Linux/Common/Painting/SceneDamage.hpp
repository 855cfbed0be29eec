/// Computes which pixels differ between two scenes.
#pragma once

#include "Painting/Pixels/Damage.hpp"
#include "Painting/Pixels/ViewMapping.hpp"
#include "Presentation/Scene.hpp"

#include <span>

namespace vireline::xdg {

/// Nodes and their positions, back to front.
struct PlacedScene {
    std::span<const SceneNode> nodes;
    std::span<const PlacedNode> places;
};

namespace SceneDamage {

/// Adds the pixels to repaint when `after` replaces `before`; none if both look the same.
void add(Damage& damage, const PlacedScene& before, const PlacedScene& after);

}
}
