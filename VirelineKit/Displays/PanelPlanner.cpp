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

PanelSpec panel(const ScreenSnapshot& screen, const DockOrdering::Counts& counts,
                const Request& request) {
    const DockPosition edge = request.position;
    const DockEdge::Extent display = DockEdge::along(screen.frame, edge);
    const Fit tiles = fit(counts, display.length, request);
    const DockEdge::Extent along{display.middle() - tiles.panelLength / 2, tiles.panelLength};
    const DockEdge::Extent across = DockEdge::atEdge(
        DockEdge::across(screen.frame, edge),
        thickness(edge, tiles.iconSize, request.magnification), DockMetrics::bottomMargin, edge);
    return {.displayID = screen.id,
            .frame = DockEdge::rect(along, across, edge),
            .availableWidth = tiles.availableWidth,
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
