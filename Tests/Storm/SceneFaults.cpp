/// Invariants of every scene.
#include "Storm/World.hpp"

#include <cmath>
#include <set>

namespace vireline::storm {
namespace {

bool isFinite(const Rect& rect) {
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width) &&
           std::isfinite(rect.height);
}

std::string described(const SceneNode& node) {
    std::ostringstream text;
    text << "node " << static_cast<int>(node.id.part) << '/' << node.id.owner << " at "
         << node.frame << ", scale " << node.scale << ", opacity " << node.opacity;
    return text.str();
}

bool isSound(const SceneNode& node) {
    const Point offset = node.offset();
    const bool isFiniteAll = isFinite(node.frame) && std::isfinite(offset.x) &&
                             std::isfinite(offset.y) && std::isfinite(node.scale) &&
                             std::isfinite(node.opacity);
    const bool isInRange =
        node.frame.width >= 0 && node.frame.height >= 0 && node.opacity >= 0 && node.opacity <= 1;
    return isFiniteAll && node.scale > 0 && isInRange;
}

}

std::optional<std::string> faultOf(const Scene& scene) {
    std::set<NodeID> ids;
    for (const SceneNode& node : scene.nodes) {
        if (!isSound(node))
            return described(node);
        if (!ids.insert(node.id).second)
            return "two of " + described(node);
        const auto* const image = std::get_if<ImageNode>(&node.content);
        if (image != nullptr && image->image == nullptr)
            return "no image for " + described(node);
    }
    if (scene.inputRegion && (!isFinite(*scene.inputRegion) || scene.inputRegion->width < 0 ||
                              scene.inputRegion->height < 0))
        return "a broken input region";
    return std::nullopt;
}

}
