#include "Storm/Formulas.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vireline::storm {
namespace {

int tileCount(TileCounts counts) {
    return counts.pinned + counts.unpinned + 2;
}

int separatorCount(TileCounts counts) {
    return counts.unpinned > 0 ? 2 : 1;
}

/// The length of everything in a strip except the icons.
double overhead(TileCounts counts) {
    const int n = tileCount(counts);
    const int s = separatorCount(counts);
    return 6 * (n + s - 1) + s + 14;
}

/// The maximum growth of a strip, with the pointer on its middle tile.
double growth(TileCounts counts, double icon, double magnification) {
    if (magnification <= 1)
        return 0;
    const int n = tileCount(counts);
    const double radius = (icon + 6) * 2.5;
    double total = 0;
    for (int i = 0; i < n; ++i) {
        const double distance =
            std::abs(i * (icon + 6) - n / 2 * (icon + 6)); // NOLINT: whole tiles
        const double weight = std::cos(std::min(distance / radius, 1.0) * std::numbers::pi / 2);
        const double scale = 1 + (magnification - 1) * weight * weight;
        total += icon * (scale - 1);
    }
    return total;
}

bool holdsTheDesktopsDock(const PlatformScreen& screen) {
    return screen.visibleFrame.y > screen.frame.y || screen.visibleFrame.x > screen.frame.x ||
           screen.frame.x + screen.frame.width > screen.visibleFrame.x + screen.visibleFrame.width;
}

PlannedDock plannedDock(const PlatformScreen& screen, const LookOfDocks& look) {
    const Rect& display = screen.frame;
    const bool isBottom = look.position == DockPosition::bottom;
    double available = (isBottom ? display.width : display.height) - 20;
    double icon = fittedIconSize(look.counts, available, look.iconSize);
    if (const double room = growth(look.counts, icon, look.magnification); room > 0) {
        available -= room;
        icon = fittedIconSize(look.counts, available, look.iconSize);
    }
    const double strip = overhead(look.counts) + icon * tileCount(look.counts);
    const double length = strip + growth(look.counts, icon, look.magnification);
    const double extra = look.magnification > 1 ? (look.magnification - 1) * icon : 0;
    const double along = (isBottom ? display.midX() : display.midY()) - length / 2;
    Rect frame;
    switch (look.position) {
    case DockPosition::bottom:
        frame = {along, display.y + 4, length, 84 + extra};
        break;
    case DockPosition::left:
        frame = {display.x + 4, along, 58 + extra, length};
        break;
    case DockPosition::right:
        frame = {display.x + display.width - 4 - 58 - extra, along, 58 + extra, length};
        break;
    }
    return {*screen.number, frame, available, look.position};
}

}

double fittedIconSize(TileCounts counts, double available, double largest) {
    const double fitting = std::floor((available - overhead(counts)) / tileCount(counts));
    return std::min(std::max(fitting, 16.0), largest);
}

std::vector<PlannedDock> plannedDocks(const std::vector<PlatformScreen>& screens,
                                      const LookOfDocks& look) {
    std::vector<PlatformScreen> numbered = screens;
    std::erase_if(numbered, [](const PlatformScreen& screen) { return !screen.number; });
    if (numbered.size() < 2)
        return {};
    auto host = std::ranges::find_if(numbered, holdsTheDesktopsDock);
    if (host == numbered.end())
        host = numbered.begin();
    numbered.erase(host);
    std::vector<PlannedDock> docks;
    docks.reserve(numbered.size());
    for (const PlatformScreen& screen : numbered)
        docks.push_back(plannedDock(screen, look));
    return docks;
}

Rect sliverOf(const Rect& frame, DockPosition position) {
    switch (position) {
    case DockPosition::left:
        return {frame.x - 4, frame.y, 4, frame.height};
    case DockPosition::right:
        return {frame.x + frame.width, frame.y, 4, frame.height};
    case DockPosition::bottom:
        break;
    }
    return {frame.x, frame.y - 4, frame.width, 4};
}

Rect hoverFrameOf(const Rect& frame, DockPosition position) {
    switch (position) {
    case DockPosition::left:
        return {frame.x - 4, frame.y, frame.width + 4, frame.height};
    case DockPosition::right:
        return {frame.x, frame.y, frame.width + 4, frame.height};
    case DockPosition::bottom:
        break;
    }
    return {frame.x, frame.y - 4, frame.width, frame.height + 4};
}

Rect hostedFrameOf(const Rect& frame, DockPosition position, bool hides, bool isIn) {
    Rect hosted{0, 0, frame.width, frame.height};
    if (hides && isIn && position == DockPosition::right)
        hosted.x = 4 - frame.width;
    if (hides && !isIn && position == DockPosition::bottom)
        hosted.y = 4;
    if (hides && !isIn && position == DockPosition::left)
        hosted.x = 4;
    return hosted;
}

std::vector<Rect> guardBands(const std::vector<PlatformScreen>& screens,
                             const std::vector<std::uint32_t>& displays) {
    std::vector<Rect> bands;
    std::optional<double> primaryHeight;
    for (const PlatformScreen& screen : screens) {
        if (!screen.number)
            continue;
        if (!primaryHeight)
            primaryHeight = screen.frame.height;
        if (std::ranges::count(displays, *screen.number) > 0)
            bands.push_back(
                {screen.frame.x, *primaryHeight - screen.frame.y - 3, screen.frame.width, 3});
    }
    return bands;
}

std::vector<Rect> eventFrames(const std::vector<PlatformScreen>& screens) {
    std::vector<Rect> frames;
    double primaryHeight = 0;
    for (const PlatformScreen& screen : screens) {
        if (!screen.number)
            continue;
        const Rect& frame = screen.frame;
        if (frames.empty())
            primaryHeight = frame.height;
        frames.push_back(
            {frame.x, primaryHeight - frame.y - frame.height, frame.width, frame.height});
    }
    return frames;
}

Point keptOut(Point pointer, const std::vector<Rect>& bands, const std::vector<Rect>& displays) {
    const auto isOn = [](const Rect& rect, double x, double y) {
        return x >= rect.x && x < rect.x + rect.width && y >= rect.y && y < rect.y + rect.height;
    };
    const auto display = [&](double x, double y, double butNotOn = -1e9) {
        return std::ranges::find_if(displays, [&](const Rect& rect) {
            return isOn(rect, x, y) && !isOn(rect, x, butNotOn);
        });
    };
    for (const Rect& band : bands) {
        if (!isOn(band, pointer.x, pointer.y))
            continue;
        const bool leadsOn = display(pointer.x, band.y + 3.5, band.y) != displays.end();
        return leadsOn ? pointer : Point{pointer.x, band.y};
    }
    if (display(pointer.x, pointer.y) != displays.end())
        return pointer;
    // Beyond all displays: straight up to the lowest one in that column.
    double edge = -1e9;
    for (const Rect& rect : displays) {
        const double bottom = rect.y + rect.height;
        if (pointer.x >= rect.x && pointer.x < rect.x + rect.width && bottom <= pointer.y)
            edge = std::max(edge, bottom);
    }
    for (const Rect& band : bands) {
        if (isOn(band, pointer.x, edge - 0.5))
            return {pointer.x, band.y};
    }
    return pointer;
}

int landing(int from, double offset, double slot, int count) {
    const int target = from + static_cast<int>(std::lround(offset / slot));
    return std::clamp(target, 0, count - 1);
}

bool isNear(const Rect& a, const Rect& b) {
    constexpr double rounding = 1e-6;
    return std::abs(a.x - b.x) < rounding && std::abs(a.y - b.y) < rounding &&
           std::abs(a.width - b.width) < rounding && std::abs(a.height - b.height) < rounding;
}

}
