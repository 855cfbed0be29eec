/// Small scenes for the animator's tests.
#pragma once

#include "Views/Contents/Animator.hpp"

#include <cstdint>
#include <utility>
#include <vector>

namespace vireline::test {

inline constexpr Curve slow{1, Easing::easeInOut};
inline constexpr Curve fade{0.1, Easing::easeOut};

inline SceneNode dotAt(double x, std::uint32_t owner = 1) {
    return {.id = {NodeID::Part::dot, owner}, .frame = {x, 0, 4, 4}, .content = DotNode{}};
}

inline Scene sceneOf(std::vector<SceneNode> nodes) {
    Scene scene;
    scene.nodes = std::move(nodes);
    return scene;
}

/// The position of the first node.
inline double xAt(Animator& animator, double now) {
    return animator.frame(now).nodes.at(0).frame.x;
}

}
