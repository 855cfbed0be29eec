#include "WindowManagement/GuardMath.hpp"

namespace vireline::GuardMath {

std::vector<Rect> guardZones(std::span<const ScreenSnapshot> screens,
                             const std::set<std::uint32_t>& guarded) {
    std::vector<Rect> zones;
    if (screens.empty())
        return zones;
    const double flipHeight = screens.front().frame.height;
    for (const ScreenSnapshot& screen : screens) {
        if (guarded.contains(screen.id)) {
            zones.push_back({screen.frame.minX(), flipHeight - screen.frame.minY() - bandDepth,
                             screen.frame.width, bandDepth});
        }
    }
    return zones;
}

std::optional<Point> clamp(Point point, std::span<const Rect> zones) noexcept {
    for (const Rect& zone : zones) {
        if (zone.minX() <= point.x && point.x < zone.maxX() && zone.minY() < point.y)
            return Point{point.x, zone.minY()};
    }
    return std::nullopt;
}

}
