#include "WindowManagement/WindowPlacement.hpp"

#include "Displays/DockMetrics.hpp"

#include <algorithm>

namespace vireline::WindowPlacement {
namespace {

/// Between the dock's strip and the window.
constexpr double margin = 8;

double flipHeight(std::span<const ScreenSnapshot> screens) {
    return screens.front().frame.height;
}

/// How far the dock reaches into its display, with its icons at their greatest.
double reservedThickness(const FillContext& context) {
    const double strip = context.position == DockPosition::bottom ? DockMetrics::panelHeight
                                                                  : DockMetrics::stripHeight;
    const double growth =
        context.magnification > 1 ? (context.magnification - 1) * context.configuredIconSize : 0;
    return strip + margin + growth;
}

}

Point centeredAXPosition(Size windowSize, const ScreenSnapshot& target,
                         std::span<const ScreenSnapshot> screens) {
    if (screens.empty())
        return {};
    return {target.frame.midX() - windowSize.width / 2,
            flipHeight(screens) - target.frame.midY() - windowSize.height / 2};
}

Placement fillFrame(const ScreenSnapshot& target, std::span<const ScreenSnapshot> screens,
                    const FillContext& context) {
    if (screens.empty())
        return {};
    Rect free = target.visibleFrame;
    if (context.dockReserved) {
        const double reserve = reservedThickness(context);
        switch (context.position) {
        case DockPosition::bottom:
            free.y += reserve;
            free.height -= reserve;
            break;
        case DockPosition::left:
            free.x += reserve;
            free.width -= reserve;
            break;
        case DockPosition::right:
            free.width -= reserve;
            break;
        }
    }
    return {{free.minX(), flipHeight(screens) - free.maxY()}, free.size()};
}

std::optional<std::uint32_t> displayContaining(Point axTopLeft, Size windowSize,
                                               std::span<const ScreenSnapshot> screens) {
    if (screens.empty())
        return std::nullopt;
    const Point center{axTopLeft.x + windowSize.width / 2,
                       flipHeight(screens) - (axTopLeft.y + windowSize.height / 2)};
    const auto found = std::ranges::find_if(
        screens, [center](const ScreenSnapshot& screen) { return screen.frame.contains(center); });
    return found == screens.end() ? std::nullopt : std::optional{found->id};
}

}
