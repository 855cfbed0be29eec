/// The checks of what docks at rest show of apps' announcements and of their wish for attention.
#include "Storm/World.hpp"

#include <algorithm>
#include <cmath>
#include <set>

namespace vireline::storm {
namespace {

/// What is shown of one app, and where: the number of its tile first.
using Signals = std::multiset<std::string>;

/// The signal that a node shows; empty for other nodes.
std::string signalOf(const SceneNode& node) {
    if (const auto* const badge = std::get_if<BadgeNode>(&node.content))
        return "badge " + badge->text;
    if (const auto* const progress = std::get_if<ProgressNode>(&node.content))
        return "progress " + std::to_string(std::lround(progress->fraction * 100));
    if (std::holds_alternative<MarkNode>(node.content))
        return node.id.part == NodeID::Part::mark ? "mark" : "mark on the line";
    return {};
}

std::string joined(const Signals& signals) {
    std::string text;
    for (const std::string& signal : signals)
        text += (text.empty() ? "" : ", ") + signal;
    return text.empty() ? "nothing" : text;
}

}

void World::lookAtSignals(StormWindow& window, const ModelDock& dock) {
    const auto tiles = window.tiles();
    Signals shown;
    for (const SceneNode& node : window.scene.nodes) {
        const std::string signal = signalOf(node);
        const auto tile = std::ranges::find(tiles, node.id.owner, &AccessibleTile::id);
        if (!signal.empty())
            shown.insert(std::to_string(tile - tiles.begin()) + ' ' + signal);
    }
    Signals expected;
    for (std::size_t i = 0; i < model.items.size(); ++i) {
        const std::string& app = model.items[i].id;
        const std::string place = std::to_string(i) + ' ';
        if (model.marked.contains(app))
            expected.insert(place + "mark");
        const auto status = model.statuses.find(app);
        if (status == model.statuses.end())
            continue;
        if (const auto count = status->second.count)
            expected.insert(place + "badge " + (*count > 99 ? "99+" : std::to_string(*count)));
        if (const auto progress = status->second.progress)
            expected.insert(place + "progress " + std::to_string(std::lround(*progress * 100)));
    }
    if (shown != expected)
        fail("dock ", dock.id.display, " shows ", joined(shown), " instead of ", joined(expected));
}

/// A hidden dock shows the marks where their tiles would be, and nothing else.
void World::lookAtLineMarks(const StormWindow& window, const ModelDock& dock) {
    constexpr double tolerance = 1e-6;
    const auto places = expectedPlaces(window, dock);
    const bool arePlacesKnown = model.magnification() <= 1 || dock.isCursorKnown;
    std::vector<double> expected;
    for (std::size_t i = 0; i < model.items.size(); ++i) {
        if (model.marked.contains(model.items[i].id))
            expected.push_back(places[i].start + places[i].length / 2);
    }
    std::vector<double> shown;
    for (const SceneNode& node : window.scene.nodes) {
        const std::string signal = signalOf(node);
        if (signal.empty())
            continue;
        if (signal != "mark on the line")
            return fail("hidden dock ", dock.id.display, " shows a ", signal);
        const Point center = node.frame.center();
        shown.push_back(dock.position == DockPosition::bottom ? center.x : center.y);
    }
    if (shown.size() != expected.size())
        return fail("hidden dock ", dock.id.display, " has ", shown.size(), " marks instead of ",
                    expected.size());
    std::ranges::sort(shown);
    for (std::size_t i = 0; i < shown.size() && arePlacesKnown; ++i) {
        if (std::abs(shown[i] - expected[i]) > tolerance)
            fail("hidden dock ", dock.id.display, " has a mark at ", shown[i], " instead of ",
                 expected[i]);
    }
}

}
