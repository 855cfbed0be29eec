#include "Translation/AccessibleScene.hpp"

#include <algorithm>
#include <iterator>

namespace vireline::macos {
namespace {

struct Place {
    double x;
    double y;
    std::uint32_t tile;

    auto operator<=>(const Place&) const = default;
};

}

AccessibleScene AccessibleScene::of(const Scene& scene) {
    AccessibleScene noticed;
    std::vector<Place> places;
    for (const SceneNode& node : scene.nodes) {
        if (node.id.part == NodeID::Part::icon)
            places.push_back({node.frame.midX(), node.frame.midY(), node.id.owner});
        else if (node.id.part == NodeID::Part::dot && node.opacity > 0)
            noticed.running.push_back(node.id.owner);
    }
    std::ranges::sort(places);
    for (const Place& place : places)
        noticed.tiles.push_back(place.tile);
    std::ranges::sort(noticed.running);
    return noticed;
}

std::vector<std::uint32_t> AccessibleScene::changedSince(const AccessibleScene& before) const {
    std::vector<std::uint32_t> changed;
    std::ranges::set_symmetric_difference(before.running, running, std::back_inserter(changed));
    return changed;
}

}
