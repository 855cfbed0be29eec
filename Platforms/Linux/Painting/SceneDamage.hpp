/// Which pixels differ between two scenes.
#pragma once

#include "Painting/Damage.hpp"
#include "Painting/ViewMapping.hpp"
#include "Presentation/Scene.hpp"

#include <span>

namespace vireline::x11 {

/// Nodes and where each of them lies, back to front.
struct PlacedScene {
    std::span<const SceneNode> nodes;
    std::span<const PlacedNode> places;
};

namespace SceneDamage {

/// Adds what has to be painted again to get from one to the other; nothing for scenes that look the
/// same.
void add(Damage& damage, const PlacedScene& before, const PlacedScene& after);

}
}
