#include "Displays/PanelPlanner.hpp"

#include "Displays/DockEdge.hpp"
#include "Displays/DockLocationDetector.hpp"
#include "Displays/DockMetrics.hpp"
#include "Model/DockOrdering.hpp"
#include "Views/DockMagnifier.hpp"

namespace vireline {
namespace PanelPlanner {
namespace {

/// Downloads and Trash, which every dock counts on.
constexpr int utilityCount = 2;

/// How the tiles lie along one display's edge; points.
struct Fit {
    double availableWidth = 0;
    double iconSize = 0;
    /// With room for the most that magnification adds.
    double panelLength = 0;
};

Fit fit(const DockOrdering::Counts& counts, double edgeLength, const Request& request) {
    const auto iconSizeIn = [&](double available) {
        return DockOrdering::fittedIconSize(counts, available, request.maxIconSize);
    };
    const auto growth = [&](double iconSize) {
        return DockMagnifier::maxExtraLength(counts.tiles(), iconSize, request.magnification);
    };

    double available = edgeLength - 2 * DockMetrics::screenEdgeMargin;
    double iconSize = iconSizeIn(available);
    if (const double room = growth(iconSize); room > 0) {
        available -= room;
        iconSize = iconSizeIn(available);
    }
    const double length = DockOrdering::stripWidth(counts, iconSize) + growth(iconSize);
    return {.availableWidth = available,
            .iconSize = iconSize,
            .panelLength = length > 0 ? length : DockMetrics::placeholderWidth};
}

/// Built on the default icon size whatever the configured one, so that the dock's windows keep
/// their thickness. Only a dock at the bottom has room for the label.
double thickness(DockPosition edge, double iconSize, double magnification) {
    const double resting =
        DockEdge::isHorizontal(edge) ? DockMetrics::panelHeight : DockMetrics::stripHeight;
    return magnification > 1 ? resting + (magnification - 1) * iconSize : resting;
}

/// An inset of the visible frame up to this depth is not a panel: systems reserve a few points for
/// a dock that hides itself, and a planned panel stands clear of those anyway.
constexpr double negligibleInset = DockMetrics::bottomMargin;

/// The part of a display that other programs' panels leave free at the edges where docks stand. The
/// top edge does not count, since menu bars inset it too.
Rect beyondPanels(const ScreenSnapshot& screen) {
    const auto inset = [](double depth) { return depth > negligibleInset ? depth : 0; };
    const Rect& frame = screen.frame;
    const double left = inset(screen.visibleFrame.minX() - frame.minX());
    const double right = inset(frame.maxX() - screen.visibleFrame.maxX());
    const double bottom = inset(screen.visibleFrame.minY() - frame.minY());
    return {frame.x + left, frame.y + bottom, frame.width - left - right, frame.height - bottom};
}

bool contains(DockEdge::Extent outer, DockEdge::Extent inner) {
    return outer.start <= inner.start && inner.end() <= outer.end();
}

struct Placed {
    DockEdge::Extent along;
    Fit tiles;
};

/// In the middle of a stretch of the display's edge.
Placed centred(DockEdge::Extent stretch, const DockOrdering::Counts& counts,
               const Request& request) {
    const Fit tiles = fit(counts, stretch.length, request);
    return {{stretch.middle() - tiles.panelLength / 2, tiles.panelLength}, tiles};
}

/// Stands beyond a panel that another program has at the same edge. A panel across one end of the
/// edge matters only to a dock so long that it would reach it.
PanelSpec panel(const ScreenSnapshot& screen, const DockOrdering::Counts& counts,
                const Request& request) {
    const DockPosition edge = request.position;
    const Rect free = beyondPanels(screen);
    Placed placed = centred(DockEdge::along(screen.frame, edge), counts, request);
    if (const auto stretch = DockEdge::along(free, edge); !contains(stretch, placed.along))
        placed = centred(stretch, counts, request);
    const double depth = thickness(edge, placed.tiles.iconSize, request.magnification);
    const DockEdge::Extent across =
        DockEdge::atEdge(DockEdge::across(free, edge), depth, DockMetrics::bottomMargin, edge);
    return {.displayID = screen.id,
            .frame = DockEdge::rect(placed.along, across, edge),
            .availableWidth = placed.tiles.availableWidth,
            .position = edge};
}

}

std::vector<PanelSpec> desiredPanels(std::span<const ScreenSnapshot> screens,
                                     const Request& request) {
    // A single display is always the host, which leaves it without a panel.
    const auto host = DockLocationDetector::dockHost(screens);
    const DockOrdering::Counts counts{.pinned = request.pinnedCount,
                                      .unpinnedRunning = request.unpinnedRunningCount,
                                      .utility = utilityCount};
    std::vector<PanelSpec> panels;
    panels.reserve(screens.size());
    for (const ScreenSnapshot& screen : screens) {
        if (screen.id != host && !request.hiddenDisplays.contains(screen.id))
            panels.push_back(panel(screen, counts, request));
    }
    return panels;
}

PanelPlan plan(std::span<const PanelSpec> desired, const std::map<std::uint32_t, Rect>& existing) {
    PanelPlan plan;
    std::set<std::uint32_t> wanted;
    for (const PanelSpec& spec : desired) {
        wanted.insert(spec.displayID);
        const auto panel = existing.find(spec.displayID);
        if (panel == existing.end())
            plan.create.push_back(spec);
        else if (panel->second != spec.frame)
            plan.reframe.push_back(spec);
    }
    for (const auto& [displayID, frame] : existing) {
        if (!wanted.contains(displayID))
            plan.destroy.push_back(displayID);
    }
    return plan;
}

}

Rect PanelSpec::collapsedFrame() const {
    const double sliver = DockMetrics::sliverThickness;
    return DockEdge::rect(
        DockEdge::along(frame, position),
        DockEdge::atEdge(DockEdge::across(frame, position), sliver, -sliver, position), position);
}

Rect PanelSpec::hoverFrame() const {
    return frame.united(collapsedFrame());
}

}
