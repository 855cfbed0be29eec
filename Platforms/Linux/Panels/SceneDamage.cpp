#include "Panels/SceneDamage.hpp"

#include <algorithm>
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

/// The pixels of all nodes that are not just the same among `others`. A node that is the same but
/// comes in another order, before or behind one it overlaps, counts as different.
void addChanged(QRegion& region, Nodes nodes, Nodes others, const ViewMapping& mapping) {
    const SceneNode* latest = nullptr;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const SceneNode* const other = find(others, nodes[i], i);
        const bool isInOrder = other != nullptr && (latest == nullptr || latest < other);
        if (!isInOrder || *other != nodes[i])
            region += ViewMappings::touched(nodes[i], mapping);
        if (isInOrder)
            latest = other;
    }
}

}

QRegion between(const Scene& before, const Scene& after, const ViewMapping& mapping) {
    QRegion region;
    addChanged(region, before.nodes, after.nodes, mapping);
    addChanged(region, after.nodes, before.nodes, mapping);
    return region;
}

}
