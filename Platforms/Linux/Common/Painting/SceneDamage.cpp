#include "Painting/SceneDamage.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

namespace vireline::xdg::SceneDamage {
namespace {

/// Finds the node with this ID, starting with its previous index; nullopt if there is none.
std::optional<std::size_t> find(const PlacedScene& scene, const NodeID& id, std::size_t index) {
    if (index < scene.nodes.size() && scene.nodes[index].id == id)
        return index;
    const auto found = std::ranges::find(scene.nodes, id, &SceneNode::id);
    if (found == scene.nodes.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - scene.nodes.begin());
}

/// Apart from its ends, glass looks the same at any length if its height is unchanged. Adds only
/// the areas at the left and right ends.
void addEnds(Damage& damage, const GlassNode& glass, const PlacedNode& place,
             const PlacedNode& other) {
    const QRect all = place.touched();
    const QRect before = other.touched();
    const int corner = static_cast<int>(std::ceil(glass.cornerRadius * place.scale)) + 1;
    const int left = std::max(all.left(), before.left()) + corner;
    const int right = std::min(all.right(), before.right()) - corner;
    if (left >= right)
        return damage.add(all);
    damage.add(QRect{all.topLeft(), QPoint{left, all.bottom()}});
    damage.add(QRect{QPoint{right, all.top()}, all.bottomRight()});
}

bool differsInLengthOnly(const PlacedNode& place, PlacedNode other) {
    other.rect.setLeft(place.rect.left());
    other.rect.setRight(place.rect.right());
    return other == place;
}

/// Adds the pixels in which the node differs from its appearance at `before`, which is null if the
/// node is new.
void addChange(Damage& damage, const SceneNode& node, const PlacedNode& place,
               const PlacedNode* before) {
    if (place.alpha == 0 || (before != nullptr && *before == place))
        return;
    const auto* const glass = std::get_if<GlassNode>(&node.content);
    if (glass != nullptr && before != nullptr && differsInLengthOnly(place, *before))
        return addEnds(damage, *glass, place, *before);
    damage.add(place.touched());
}

/// Adds the pixels of all nodes that look different in the other scene, or whose order relative to
/// other nodes differs.
void addChanged(Damage& damage, const PlacedScene& scene, const PlacedScene& other) {
    std::size_t next = 0;
    for (std::size_t i = 0; i < scene.nodes.size(); ++i) {
        const auto found = find(other, scene.nodes[i].id, i);
        const bool isInOrder = found && *found >= next;
        const bool isSame = isInOrder && other.nodes[*found].content == scene.nodes[i].content;
        addChange(damage, scene.nodes[i], scene.places[i],
                  isSame ? &other.places[*found] : nullptr);
        if (isInOrder)
            next = *found + 1;
    }
}

}

void add(Damage& damage, const PlacedScene& before, const PlacedScene& after) {
    addChanged(damage, before, after);
    addChanged(damage, after, before);
}

}
