#include "VirtualDesktop/Docks/DockLayout.hpp"

#include "Layout/DockMagnifier.hpp"
#include "Model/DockMetrics.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace vireline::desktop {
namespace {

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

/// Between the strip's edge and a running dot.
constexpr double dotGap = 1.5;

Rect frameOf(const Monitor& monitor, const PixelRect& primary, double scale) {
    return {static_cast<double>(monitor.frame.x - primary.x),
            static_cast<double>(primary.bottom() - monitor.frame.bottom()),
            monitor.frame.width / scale, monitor.frame.height / scale};
}

void reserve(Rect& visible, Edge edge, double thickness) {
    if (edge == Edge::left)
        visible.x += thickness;
    if (edge == Edge::bottom)
        visible.y += thickness;
    if (edge == Edge::left || edge == Edge::right)
        visible.width -= thickness;
    else
        visible.height -= thickness;
}

/// Calculated independently of the program's layout: at the bottom the label of the largest icon
/// extends farthest, at the sides an icon that bobs while being dragged.
Overhang overhangOf(const PanelSpec& spec, const PanelPlanner::Request& request) {
    const DockOrdering::Counts& counts = request.counts;
    const double icon =
        std::max(1.0, request.magnification) *
        DockOrdering::fittedIconSize(counts, spec.availableWidth, request.maxIconSize);
    if (spec.position == DockPosition::bottom)
        return {.top = std::max(0.0, icon + 14 + 26 - spec.frame.height)};
    const double reach = 7 + icon + 0.04 * (icon + 5.5) + 12;
    const double overhang = std::max(0.0, std::ceil(reach - spec.frame.width));
    return spec.position == DockPosition::left ? Overhang{.right = overhang}
                                               : Overhang{.left = overhang};
}

}

std::string nameOf(Edge edge) {
    constexpr std::array<const char*, 4> names{"bottom", "left", "right", "top"};
    return names.at(static_cast<std::size_t>(edge));
}

PixelRect panelFrame(const Monitor& monitor, Edge edge, int thickness) {
    PixelRect frame = monitor.frame;
    if (edge == Edge::bottom)
        frame.y = frame.bottom() - thickness;
    if (edge == Edge::right)
        frame.x = frame.right() - thickness;
    if (edge == Edge::bottom || edge == Edge::top)
        frame.height = thickness;
    else
        frame.width = thickness;
    return frame;
}

void Displays::sortForWayland(const std::map<std::string, std::uint32_t>& current,
                              PixelPoint origin) {
    std::ranges::sort(monitors, {}, [origin](const Monitor& monitor) {
        return std::abs(monitor.frame.x - origin.x) + std::abs(monitor.frame.y - origin.y);
    });
    for (const auto& [monitor, id] : current)
        ids.insert_or_assign(monitor, id);
}

std::uint32_t Displays::idOf(const XClient& client, const std::string& monitor) const {
    const auto found = ids.find(monitor);
    return found == ids.end() ? displayID(client, monitor) : found->second;
}

double Displays::scale(const std::string& monitor) const {
    const auto found = scales.find(monitor);
    return found == scales.end() ? 1 : found->second;
}

std::string Displays::scaleFactors() const {
    std::string text;
    for (const auto& [monitor, scale] : scales)
        text += (text.empty() ? "" : ";") + monitor + "=" + std::to_string(scale);
    return text;
}

std::vector<ScreenSnapshot> Displays::snapshots(const XClient& client) const {
    std::vector<ScreenSnapshot> screens;
    for (const auto& monitor : monitors) {
        ScreenSnapshot screen;
        screen.id = idOf(client, monitor.name);
        screen.backingScaleFactor = scale(monitor.name);
        screen.frame = frameOf(monitor, monitors.front().frame, screen.backingScaleFactor);
        screen.visibleFrame = screen.frame;
        for (const auto& reservation : reservations) {
            if (reservation.monitor == monitor.name)
                reserve(screen.visibleFrame, reservation.edge,
                        reservation.thickness / screen.backingScaleFactor);
        }
        screens.push_back(screen);
    }
    return screens;
}

PixelRect Displays::pixels(const Monitor& monitor, const Rect& global) const {
    const double factor = scale(monitor.name);
    const Rect display = frameOf(monitor, monitors.front().frame, factor);
    const int left = rounded(monitor.frame.x + (global.minX() - display.minX()) * factor);
    const int right = rounded(monitor.frame.x + (global.maxX() - display.minX()) * factor);
    const int top = rounded(monitor.frame.bottom() - (global.maxY() - display.minY()) * factor);
    const int bottom = rounded(monitor.frame.bottom() - (global.minY() - display.minY()) * factor);
    return {left, top, right - left, bottom - top};
}

std::vector<PlannedDock> plannedDocks(const XClient& client, const Displays& displays,
                                      const PanelPlanner::Request& request) {
    std::vector<PlannedDock> docks;
    for (const auto& spec : PanelPlanner::desiredPanels(displays.snapshots(client), request)) {
        const auto monitor = std::ranges::find_if(displays.monitors, [&](const auto& candidate) {
            return displays.idOf(client, candidate.name) == spec.displayID;
        });
        const Overhang overhang = overhangOf(spec, request);
        docks.push_back({*monitor, displays.scale(monitor->name), spec,
                         displays.pixels(*monitor, spec.frame), overhang,
                         displays.pixels(*monitor, overhang.around(spec.frame))});
        if (displays.showsOnlyStrips)
            docks.back().window =
                DockLayout{docks.back(), request.counts, request.maxIconSize}.strip();
    }
    std::ranges::sort(docks, {}, [](const auto& dock) { return dock.spec.displayID; });
    return docks;
}

DockLayout::DockLayout(const PlannedDock& dock, const DockOrdering::Counts& counts,
                       double maxIconSize)
    : dock_(dock)
    , iconSize_(DockOrdering::fittedIconSize(counts, dock.spec.availableWidth, maxIconSize))
    , centers_(DockMagnifier::baseCenters(counts, iconSize_))
    , length_(DockOrdering::stripWidth(counts, iconSize_)) {}

PixelPoint DockLayout::icon(int index) const {
    const double across = DockMetrics::stripPadding + iconSize_ / 2;
    return place(centers_.at(static_cast<std::size_t>(index)), across);
}

PixelPoint DockLayout::dot(int index) const {
    return place(centers_.at(static_cast<std::size_t>(index)),
                 dotGap + DockMetrics::indicatorDiameter / 2);
}

PixelRect DockLayout::strip() const {
    const double thickness = iconSize_ + DockMetrics::stripHeightPadding;
    const PixelPoint near = place(0, 0);
    const PixelPoint far = place(length_, thickness);
    return {std::min(near.x, far.x), std::min(near.y, far.y), std::abs(far.x - near.x),
            std::abs(far.y - near.y)};
}

PixelPoint DockLayout::place(double along, double across) const {
    const Rect& frame = dock_.spec.frame;
    const PixelRect& window = dock_.frame;
    const bool isHorizontal = dock_.spec.position == DockPosition::bottom;
    const double container = isHorizontal ? frame.width : frame.height;
    const int main = rounded(((container - length_) / 2 + along) * dock_.scale);
    const int cross = rounded(across * dock_.scale);
    if (isHorizontal)
        return {window.x + main, window.bottom() - cross};
    if (dock_.spec.position == DockPosition::left)
        return {window.x + cross, window.y + main};
    return {window.right() - cross, window.y + main};
}

}
