/// Where the docks and their tiles belong, from the program's own geometry and the way that an X11
/// desktop's pixels map to points.
#pragma once

#include "Layout/PanelPlanner.hpp"
#include "Layout/ScreenSnapshot.hpp"
#include "Model/DockOrdering.hpp"
#include "Platform/PanelWindow.hpp"
#include "VirtualDesktop/DockWindows.hpp"
#include "VirtualDesktop/Monitors.hpp"

#include <map>
#include <string>
#include <vector>

namespace vireline::desktop {

enum class Edge : std::uint8_t { bottom, left, right, top };

/// What another program reserves at one edge of a monitor; pixels.
struct Reservation {
    std::string monitor;
    Edge edge = Edge::bottom;
    int thickness = 0;
};

/// The displays as the program should see them.
struct Displays {
    std::vector<Monitor> monitors;
    std::vector<Reservation> reservations;
    /// Pixels per point, where it is not 1.
    std::map<std::string, double> scales;

    [[nodiscard]] double scale(const std::string& monitor) const;
    [[nodiscard]] std::vector<ScreenSnapshot> snapshots(const XClient& client) const;

    /// A rectangle of global space that belongs to `monitor`, on whole pixels.
    [[nodiscard]] PixelRect pixels(const Monitor& monitor, const Rect& global) const;
};

/// One dock that should be there.
struct PlannedDock {
    Monitor monitor;
    double scale = 1;
    PanelSpec spec;
    PixelRect frame;
    /// What it draws beyond its frame while it is out, and the whole of its window.
    Overhang overhang;
    PixelRect window;
};

/// The docks that should be there, in ascending order of display IDs.
[[nodiscard]] std::vector<PlannedDock> plannedDocks(const XClient& client, const Displays& displays,
                                                    const PanelPlanner::Request& request);

/// The tiles of one dock that nobody points at.
class DockLayout {
public:
    DockLayout(const PlannedDock& dock, const DockOrdering::Counts& counts, double maxIconSize);

    /// Points.
    [[nodiscard]] double iconSize() const noexcept { return iconSize_; }

    /// The middle of the icon of the tile at `index`: pinned apps, running apps, Downloads, Trash.
    [[nodiscard]] PixelPoint icon(int index) const;
    /// The middle of the dot between that icon and the screen's edge.
    [[nodiscard]] PixelPoint dot(int index) const;
    /// The strip, pixels.
    [[nodiscard]] PixelRect strip() const;

private:
    /// `along` from the strip's leading edge, `across` from its side at the screen's edge; points.
    [[nodiscard]] PixelPoint place(double along, double across) const;

    PlannedDock dock_;
    double iconSize_;
    std::vector<double> centers_;
    double length_;
};

}
