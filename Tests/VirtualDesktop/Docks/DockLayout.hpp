/// The expected positions of docks and tiles, from the program's own geometry and the mapping of
/// pixels to points under X11.
#pragma once

#include "Layout/PanelPlanner.hpp"
#include "Layout/ScreenSnapshot.hpp"
#include "Model/DockOrdering.hpp"
#include "Platform/PanelWindow.hpp"
#include "VirtualDesktop/Docks/DockWindows.hpp"
#include "VirtualDesktop/Screen/Monitors.hpp"

#include <map>
#include <string>
#include <vector>

namespace vireline::desktop {

enum class Edge : std::uint8_t { bottom, left, right, top };

[[nodiscard]] std::string nameOf(Edge edge);

/// Space that another program reserves at one edge of a monitor; pixels.
struct Reservation {
    std::string monitor;
    Edge edge = Edge::bottom;
    int thickness = 0;
};

/// Where another program's panel is that reserves its thickness at an edge.
[[nodiscard]] PixelRect panelFrame(const Monitor& monitor, Edge edge, int thickness);

/// The displays as the program should see them.
struct Displays {
    std::vector<Monitor> monitors;
    std::vector<Reservation> reservations;
    /// Pixels per point, for monitors where that is not 1.
    std::map<std::string, double> scales;

    /// The display IDs by monitor if they are not those of the X server.
    std::map<std::string, std::uint32_t> ids{};
    /// Whether docks are recognised by what can be seen of them, which is their strips.
    bool showsOnlyStrips = false;

    /// Puts the monitors in the program's order: Wayland has no primary display, so the one at the
    /// layout's origin counts as such. The IDs of outputs that are gone stay known.
    void sortForWayland(const std::map<std::string, std::uint32_t>& current, PixelPoint origin);

    [[nodiscard]] std::uint32_t idOf(const XClient& client, const std::string& monitor) const;
    [[nodiscard]] double scale(const std::string& monitor) const;
    /// The value of QT_SCREEN_SCALE_FACTORS.
    [[nodiscard]] std::string scaleFactors() const;
    [[nodiscard]] std::vector<ScreenSnapshot> snapshots(const XClient& client) const;

    /// Converts a rectangle in global space on `monitor` to whole pixels.
    [[nodiscard]] PixelRect pixels(const Monitor& monitor, const Rect& global) const;
};

/// An expected dock.
struct PlannedDock {
    Monitor monitor;
    double scale = 1;
    PanelSpec spec;
    PixelRect frame;
    /// How far its drawing extends beyond its frame when expanded, and its whole window.
    Overhang overhang;
    PixelRect window;
};

/// The expected docks, in ascending order of display IDs.
[[nodiscard]] std::vector<PlannedDock> plannedDocks(const XClient& client, const Displays& displays,
                                                    const PanelPlanner::Request& request);

/// The tiles of a dock without the pointer over it.
class DockLayout {
public:
    DockLayout(const PlannedDock& dock, const DockOrdering::Counts& counts, double maxIconSize);

    /// In points.
    [[nodiscard]] double iconSize() const noexcept { return iconSize_; }

    /// The centre of the icon of the tile at `index`: pinned apps, running apps, Downloads, Trash.
    [[nodiscard]] PixelPoint icon(int index) const;
    /// The centre of the dot between that icon and the screen's edge.
    [[nodiscard]] PixelPoint dot(int index) const;
    /// The strip's frame in pixels.
    [[nodiscard]] PixelRect strip() const;

private:
    /// `along` is measured from the strip's leading edge, `across` from its side at the screen's
    /// edge; points.
    [[nodiscard]] PixelPoint place(double along, double across) const;

    PlannedDock dock_;
    double iconSize_;
    std::vector<double> centers_;
    double length_;
};

}
