#include "ClientWindows/WindowPlacement.hpp"

#include "Layout/DockEdge.hpp"
#include "Layout/PanelPlanner.hpp"

#include <algorithm>

namespace vireline::WindowPlacement {
namespace {

/// The gap between the dock's strip and the window.
constexpr double margin = 8;

double flipHeight(std::span<const ScreenSnapshot> screens) {
    return screens.front().frame.height;
}

/// How far the dock extends into its display, with fully magnified icons.
double reservedThickness(const FillContext& context) {
    return PanelPlanner::thickness(context.position, context.configuredIconSize,
                                   context.magnification) +
           margin;
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
        const auto edge = DockEdge::global(context.position);
        free =
            edge.rect(edge.along(free), edge.beyond(edge.across(free), reservedThickness(context)));
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
