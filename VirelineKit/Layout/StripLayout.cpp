#include "Layout/StripLayout.hpp"

#include "Layout/DockMagnifier.hpp"
#include "Model/DockMetrics.hpp"

#include <algorithm>
#include <cmath>

namespace vireline::StripLayout {
namespace {

using namespace DockMetrics;

/// The gap between an icon and its dot, and between the dot and the strip's edge. The gaps and the
/// dot fit into the strip's padding on that side.
constexpr double dotSpacing = 1.5;
/// The length of a separator, as a fraction of the strip's thickness.
constexpr double separatorShare = 0.6;
/// How far the magnification band extends beyond the strip.
constexpr double bandOverhang = 8;
/// The gap between the strip and a menu.
constexpr double menuGap = 4;

/// The extent of a tile along the axis, relative to the strip's leading edge.
struct Span {
    double start = 0;
    double length = 0;

    [[nodiscard]] double end() const noexcept { return start + length; }
};

/// The strip along its axis.
struct AxisLayout {
    std::vector<Span> tiles;
    /// The position of the strip's leading edge in the view.
    double shift = 0;
    double length = 0;
};

/// Removes a tile that the plan has room for. The following tiles move up.
void removeTile(AxisLayout& axis, std::size_t index) {
    const double freed = axis.tiles[index].length + iconSpacing;
    axis.tiles.erase(axis.tiles.begin() + static_cast<std::ptrdiff_t>(index));
    for (auto i = index; i < axis.tiles.size(); ++i)
        axis.tiles[i].start -= freed;
    axis.length -= freed;
}

std::size_t firstUtilityTile(const DockOrdering::Counts& counts) {
    return static_cast<std::size_t>(counts.pinned) +
           static_cast<std::size_t>(counts.unpinnedRunning);
}

AxisLayout axisLayout(const Request& request) {
    const double size = request.iconSize;
    const DockOrdering::Counts& counts = request.counts;
    const double container = request.edge.length();
    const double baseLength = DockOrdering::stripWidth(counts, size);
    const auto base = DockMagnifier::baseCenters(counts, size);
    std::optional<double> cursorInStrip;
    if (request.cursorAxis)
        cursorInStrip = *request.cursorAxis - (container - baseLength) / 2;
    const auto scales = DockMagnifier::scales(base, cursorInStrip, request.magnification,
                                              DockMagnifier::radius(size));
    const auto packed = DockMagnifier::packedCenters(base, scales, size);

    AxisLayout axis;
    axis.length = DockMagnifier::packedLength(packed, scales, size);
    axis.shift = DockMagnifier::anchoredShift(base, packed, {baseLength, axis.length, container},
                                              request.cursorAxis);
    axis.tiles.reserve(packed.size());
    for (std::size_t i = 0; i < packed.size(); ++i) {
        const double length = size * scales[i];
        axis.tiles.push_back({packed[i] - length / 2, length});
    }
    const std::size_t firstUtility = firstUtilityTile(counts);
    if (!request.hasTrash)
        removeTile(axis, firstUtility + 1);
    if (!request.hasDownloads)
        removeTile(axis, firstUtility);
    return axis;
}

TileFrames tileFrames(const Edge& edge, const Span& span, double shift) {
    const double start = shift + span.start;
    const double dotStart = start + (span.length - indicatorDiameter) / 2;
    return {edge.rect(start, span.length, stripPadding, span.length),
            edge.rect(dotStart, indicatorDiameter, dotSpacing, indicatorDiameter),
            edge.rect(start, span.length, 0, stripPadding + span.length)};
}

/// The separator before the tile at `index`, or after the last tile if the group is empty.
Rect separatorFrame(const Request& request, const AxisLayout& axis, std::size_t index) {
    const double thickness = request.iconSize + stripHeightPadding;
    const double length = thickness * separatorShare;
    double start = stripPadding;
    if (index < axis.tiles.size()) {
        start = axis.tiles[index].start - iconSpacing - separatorWidth;
    } else if (!axis.tiles.empty()) {
        start = axis.tiles.back().end() + iconSpacing;
    }
    return request.edge.rect(axis.shift + start, separatorWidth, 0, length);
}

double growth(const Request& request) noexcept {
    return std::max(0.0, (request.magnification - 1) * request.iconSize);
}

}

StripFrames layout(const Request& request) {
    const AxisLayout axis = axisLayout(request);
    const Edge& edge = request.edge;
    const double thickness = request.iconSize + stripHeightPadding;

    StripFrames frames;
    frames.iconSize = request.iconSize;
    frames.magnifiedIconSize = request.iconSize * std::max(request.magnification, 1.0);
    frames.glass = edge.rect(axis.shift, axis.length, 0, thickness);
    const double lengthAtRest = DockOrdering::stripWidth(request.counts, request.iconSize);
    frames.glassAtRest = edge.rect((edge.length() - lengthAtRest) / 2, lengthAtRest, 0, thickness);
    frames.tiles.reserve(axis.tiles.size());
    for (const Span& span : axis.tiles)
        frames.tiles.push_back(tileFrames(edge, span, axis.shift));
    if (request.counts.unpinnedRunning > 0) {
        const auto firstRunning = static_cast<std::size_t>(request.counts.pinned);
        frames.separators.push_back(separatorFrame(request, axis, firstRunning));
    }
    frames.separators.push_back(separatorFrame(request, axis, firstUtilityTile(request.counts)));
    frames.labelZone = edge.rect(0, edge.length(), thickness, labelZoneHeight);
    return frames;
}

Rect labelZone(const StripFrames& frames, const Edge& edge, std::size_t tile) {
    const Point moved = edge.vector(0, frames.tiles.at(tile).icon.width - frames.iconSize);
    const Rect& zone = frames.labelZone;
    return {zone.x + moved.x, zone.y + moved.y, zone.width, zone.height};
}

MenuPlace menuPlace(const StripFrames& frames, const Edge& edge, double along) {
    double reach = frames.iconSize + stripHeightPadding;
    for (const TileFrames& tile : frames.tiles)
        reach = std::max(reach, stripPadding + tile.icon.width);
    const Rect place = edge.rect(along, 0, reach + menuGap, 0);
    using Side = MenuPlace::Side;
    if (edge.isHorizontal())
        return {{place.x, place.y}, Side::above};
    return {{place.x, place.y}, edge.position == DockPosition::left ? Side::rightOf : Side::leftOf};
}

bool isInMagnificationBand(Point p, const Edge& edge, double iconSize) noexcept {
    return edge.distance(p) <= iconSize + stripHeightPadding + bandOverhang;
}

Rect fullGrowth(const Request& request) noexcept {
    const double thickness = request.iconSize + stripHeightPadding;
    const double band = thickness + bandOverhang;
    const double icons = stripPadding + request.iconSize + growth(request);
    const double drawn = std::max(thickness, std::min(band, icons));
    const double most = std::max(band, thickness + growth(request));
    return request.edge.rect(0, request.edge.length(), 0,
                             std::min(most, std::max(request.edge.thickness(), drawn)));
}

double overhang(const Request& request) noexcept {
    const double side = request.iconSize + growth(request);
    const double tile = stripPadding + side;
    // A dragged tile is scaled about the middle of icon and dot.
    const double scaled = (draggedScale - 1) * (tile - dotSpacing) / 2;
    const double label = request.edge.isHorizontal() ? labelZoneHeight : 0;
    const double reach = std::max(tile + scaled + bounceHeight, side + stripHeightPadding + label);
    return std::max(0.0, std::ceil(reach - request.edge.thickness()));
}

}
