#include "ClientWindows/GuardMath.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::GuardMath {
namespace {

/// A tolerance in points: larger than any rounding error, smaller than any display's height.
constexpr double rounding = 0.5;

bool spans(const Rect& rect, double x) noexcept {
    return rect.minX() <= x && x < rect.maxX();
}

/// The lowest display that ends above the point; null if there is none.
const Rect* lowestAbove(Point point, std::span<const Rect> displays) noexcept {
    const Rect* lowest = nullptr;
    for (const Rect& display : displays) {
        const bool isAbove = spans(display, point.x) && display.maxY() <= point.y;
        if (isAbove && (lowest == nullptr || display.maxY() > lowest->maxY()))
            lowest = &display;
    }
    return lowest;
}

/// Whether another display begins below the band.
bool leadsToDisplay(const Rect& zone, double x, std::span<const Rect> displays) noexcept {
    const Point top{x, zone.minY()};
    const Point below{x, zone.maxY() + rounding};
    return std::ranges::any_of(displays, [&](const Rect& display) {
        return display.contains(below) && !display.contains(top);
    });
}

}

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

std::vector<Rect> displayFrames(std::span<const ScreenSnapshot> screens) {
    std::vector<Rect> frames;
    for (const ScreenSnapshot& screen : screens) {
        const Rect& frame = screen.frame;
        frames.push_back(
            {frame.minX(), screens.front().frame.height - frame.maxY(), frame.width, frame.height});
    }
    return frames;
}

std::optional<Point> clamp(Point point, std::span<const Rect> zones,
                           std::span<const Rect> displays) noexcept {
    const auto isHere = [&](const Rect& rect) { return rect.contains(point); };
    if (const auto zone = std::ranges::find_if(zones, isHere); zone != zones.end())
        return leadsToDisplay(*zone, point.x, displays) ? std::nullopt : clamp(point, {&*zone, 1});
    if (std::ranges::any_of(displays, isHere))
        return std::nullopt;
    const Rect* const above = lowestAbove(point, displays);
    if (above == nullptr)
        return clamp(point, zones);
    const auto isItsOwn = [&](const Rect& zone) {
        return spans(zone, point.x) && std::abs(zone.maxY() - above->maxY()) < rounding;
    };
    const auto zone = std::ranges::find_if(zones, isItsOwn);
    return zone == zones.end() ? std::nullopt : clamp(point, {&*zone, 1});
}

}
