/// Decides which displays get a dock and where, and what has to change to get there. Rectangles are
/// in global space: points, origin at the primary display's bottom-left corner, y upwards.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Layout/ScreenSnapshot.hpp"
#include "Model/DockOrdering.hpp"
#include "Settings/Settings.hpp"

#include <cstdint>
#include <map>
#include <ostream>
#include <set>
#include <span>
#include <vector>

namespace vireline {

/// One planned panel.
struct PanelSpec {
    std::uint32_t displayID = 0;
    Rect frame;
    /// The length available to the tiles, without margins and room for magnification.
    double availableWidth = 0;
    DockPosition position = DockPosition::bottom;

    /// The sliver along the display's edge, or along another program's panel there. It fills the
    /// gap between the edge and the planned frame.
    [[nodiscard]] Rect collapsedFrame() const;

    /// The frame united with the sliver: the area in which the pointer counts as over the dock.
    [[nodiscard]] Rect hoverFrame() const;

    bool operator==(const PanelSpec&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const PanelSpec& spec) {
    return out << '#' << spec.displayID << ' ' << spec.frame << " available "
               << spec.availableWidth;
}

/// The difference between the existing and the desired panels.
struct PanelPlan {
    std::vector<PanelSpec> create;
    std::vector<std::uint32_t> destroy;
    std::vector<PanelSpec> reframe;

    bool operator==(const PanelPlan&) const = default;
};

namespace PanelPlanner {

/// The planner's input besides the screens.
struct Request {
    DockOrdering::Counts counts;
    double maxIconSize = 44;
    DockPosition position = DockPosition::bottom;
    /// The factor under the pointer; 1 means off.
    double magnification = 1;
    /// Displays that get no panel. Kept for a later version; nothing sets it yet.
    std::set<std::uint32_t> hiddenDisplays;
};

/// One panel for every display except the one that holds the desktop's own dock, in screen order;
/// none if there are fewer than two displays. If another program has a panel at the dock's edge,
/// the dock is placed next to that, at the edge of the visible frame.
[[nodiscard]] std::vector<PanelSpec> desiredPanels(std::span<const ScreenSnapshot> screens,
                                                   const Request& request);

/// How deep a panel is across its edge. Built on the default icon size whatever the configured one,
/// so that the dock's windows keep their thickness; magnification adds what `iconSize` grows by.
/// Only a horizontal dock has room for the label.
[[nodiscard]] double thickness(DockPosition position, double iconSize,
                               double magnification) noexcept;

/// `existing` maps display IDs to the current frames of their panels. Only frames are compared.
/// `destroy` is in ascending order, the other lists are in the order of `desired`.
[[nodiscard]] PanelPlan plan(std::span<const PanelSpec> desired,
                             const std::map<std::uint32_t, Rect>& existing);

}
}
