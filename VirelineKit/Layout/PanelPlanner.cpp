#include "Layout/PanelPlanner.hpp"

#include "Layout/DockEdge.hpp"
#include "Layout/DockLocationDetector.hpp"
#include "Layout/DockMagnifier.hpp"
#include "Model/DockMetrics.hpp"

namespace vireline {
namespace PanelPlanner {
namespace {

/// How the tiles fit along one display's edge, in points.
struct Fit {
    double availableWidth = 0;
    double iconSize = 0;
    /// Includes room for the largest growth by magnification.
    double panelLength = 0;
};

Fit fit(double edgeLength, const Request& request) {
    const DockOrdering::Counts& counts = request.counts;
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

/// An inset of the visible frame up to this depth does not count as a panel: systems reserve a few
/// points for an auto-hidden dock, and a planned panel has this margin anyway.
constexpr double negligibleInset = DockMetrics::bottomMargin;

/// The part of a display that other programs' panels leave free at the bottom, left and right. The
/// top edge is ignored, since menu bars inset it too.
Rect beyondPanels(const ScreenSnapshot& screen) {
    const auto inset = [](double depth) { return depth > negligibleInset ? depth : 0; };
    const Rect& frame = screen.frame;
    const double left = inset(screen.visibleFrame.minX() - frame.minX());
    const double right = inset(frame.maxX() - screen.visibleFrame.maxX());
    const double bottom = inset(screen.visibleFrame.minY() - frame.minY());
    return {frame.x + left, frame.y + bottom, frame.width - left - right, frame.height - bottom};
}

bool contains(Extent outer, Extent inner) {
    return outer.start <= inner.start && inner.end() <= outer.end();
}

struct Placed {
    Extent along;
    Fit tiles;
};

/// Centres the panel in a part of the display's edge.
Placed centred(Extent stretch, const Request& request) {
    const Fit tiles = fit(stretch.length, request);
    return {{stretch.middle() - tiles.panelLength / 2, tiles.panelLength}, tiles};
}

/// The dock keeps clear of another program's panel at the same edge. A panel at a neighbouring edge
/// matters only if the dock is long enough to reach it.
PanelSpec panel(const ScreenSnapshot& screen, const Request& request) {
    const auto edge = DockEdge::global(request.position);
    const Rect free = beyondPanels(screen);
    Placed placed = centred(edge.along(screen.frame), request);
    if (const auto stretch = edge.along(free); !contains(stretch, placed.along))
        placed = centred(stretch, request);
    const double depth = thickness(request.position, placed.tiles.iconSize, request.magnification);
    const Extent across = edge.atEdge(edge.across(free), depth, DockMetrics::bottomMargin);
    return {.displayID = screen.id,
            .frame = edge.rect(placed.along, across),
            .availableWidth = placed.tiles.availableWidth,
            .position = request.position};
}

}

double thickness(DockPosition position, double iconSize, double magnification) noexcept {
    const double resting =
        traitsOf(position).isHorizontal ? DockMetrics::panelHeight : DockMetrics::stripHeight;
    return magnification > 1 ? resting + (magnification - 1) * iconSize : resting;
}

std::vector<PanelSpec> desiredPanels(std::span<const ScreenSnapshot> screens,
                                     const Request& request) {
    // A single display is always the host, and so gets no panel.
    const auto host = DockLocationDetector::dockHost(screens);
    std::vector<PanelSpec> panels;
    panels.reserve(screens.size());
    for (const ScreenSnapshot& screen : screens) {
        if (screen.id != host && !request.hiddenDisplays.contains(screen.id))
            panels.push_back(panel(screen, request));
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
    const auto edge = DockEdge::global(position);
    return edge.rect(edge.along(frame), edge.atEdge(edge.across(frame), sliver, -sliver));
}

Rect PanelSpec::hoverFrame() const {
    return frame.united(collapsedFrame());
}

}
