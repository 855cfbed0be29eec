#include "Panels/SceneDamage.hpp"

#include <algorithm>
#include <cmath>
#include <span>

namespace vireline::x11::SceneDamage {
namespace {

using Nodes = std::span<const SceneNode>;

/// The node of that identity, looked for at its old place first.
const SceneNode* find(Nodes nodes, const SceneNode& node, std::size_t place) {
    if (place < nodes.size() && nodes[place].id == node.id)
        return &nodes[place];
    const auto found = std::ranges::find(nodes, node.id, &SceneNode::id);
    return found == nodes.end() ? nullptr : &*found;
}

/// What a glass shows besides its two ends is the same however long it is, as long as it keeps its
/// height. Adds the end at the left and the one at the right.
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

void addChange(Damage& damage, const SceneNode& node, const SceneNode* other,
               const ViewMapping& mapping) {
    const PlacedNode place = ViewMappings::placed(node, mapping);
    if (place.alpha == 0)
        return;
    if (other == nullptr || other->content != node.content)
        return damage.add(place.touched());
    const PlacedNode before = ViewMappings::placed(*other, mapping);
    if (before == place)
        return;
    const auto* const glass = std::get_if<GlassNode>(&node.content);
    if (glass != nullptr && differsInLengthOnly(place, before))
        return addEnds(damage, *glass, place, before);
    damage.add(place.touched());
}

/// The pixels of all nodes that do not look just the same among `others`. A node that does but
/// comes in another order, before or behind one it overlaps, counts as different.
void addChanged(Damage& damage, Nodes nodes, Nodes others, const ViewMapping& mapping) {
    const SceneNode* latest = nullptr;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const SceneNode* const other = find(others, nodes[i], i);
        const bool isInOrder = other != nullptr && (latest == nullptr || latest < other);
        addChange(damage, nodes[i], isInOrder ? other : nullptr, mapping);
        if (isInOrder)
            latest = other;
    }
}

}

void add(Damage& damage, const Scene& before, const Scene& after, const ViewMapping& mapping) {
    addChanged(damage, before.nodes, after.nodes, mapping);
    addChanged(damage, after.nodes, before.nodes, mapping);
}

}
