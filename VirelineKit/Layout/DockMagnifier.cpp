#include "Layout/DockMagnifier.hpp"

#include "Foundation/Require.hpp"
#include "Model/DockMetrics.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vireline::DockMagnifier {
namespace {

/// The distance between the leading edges of adjacent tiles.
double slot(double iconSize) {
    return iconSize + DockMetrics::iconSpacing;
}

/// Exactly 1 beyond the radius, where most tiles of a long dock are, which saves the cosine.
double scaleAt(double distance, double magnification, double radius) {
    if (distance >= radius)
        return 1;
    const double weight = std::cos(distance / radius * std::numbers::pi / 2);
    return 1 + (magnification - 1) * weight * weight;
}

/// Maps a position relative to the base centres to the packed centres, by linear interpolation.
/// Positions outside the first and last centre are clamped.
double mapped(double place, std::span<const double> base, std::span<const double> packed) {
    const auto next = std::ranges::find_if(base, [place](double c) { return c >= place; });
    if (next == base.end())
        return packed.back();
    const auto i = static_cast<std::size_t>(next - base.begin());
    if (i == 0)
        return packed.front();
    const double gap = base[i] - base[i - 1];
    const double fraction = gap > 0 ? (place - base[i - 1]) / gap : 0;
    return packed[i - 1] + fraction * (packed[i] - packed[i - 1]);
}

}

double radius(double iconSize) noexcept {
    return slot(iconSize) * radiusSlots;
}

std::vector<double> baseCenters(const DockOrdering::Counts& counts, double iconSize) {
    require(counts.pinned >= 0, "the number of pinned tiles is not negative");
    std::vector<double> centers;
    centers.reserve(static_cast<std::size_t>(std::max(counts.tiles(), 0)));
    double x = DockMetrics::stripPadding;
    const auto addGroup = [&](int count) {
        for (int i = 0; i < count; ++i, x += slot(iconSize))
            centers.push_back(x + iconSize / 2);
    };
    addGroup(counts.pinned);
    for (const int count : {counts.unpinnedRunning, counts.utility}) {
        if (count > 0)
            x += DockMetrics::separatorWidth + DockMetrics::iconSpacing;
        addGroup(count);
    }
    return centers;
}

std::vector<double> scales(std::span<const double> centers, std::optional<double> cursor,
                           double magnification, double radius) {
    std::vector<double> scales(centers.size(), 1.0);
    if (!cursor || !(magnification > 1) || !(radius > 0))
        return scales;
    std::ranges::transform(centers, scales.begin(), [&](double center) {
        return scaleAt(std::abs(center - *cursor), magnification, radius);
    });
    return scales;
}

std::vector<double> packedCenters(std::span<const double> baseCenters,
                                  std::span<const double> scales, double iconSize) {
    std::vector<double> packed(baseCenters.begin(), baseCenters.end());
    if (packed.empty() || baseCenters.size() != scales.size())
        return packed;
    double edge = baseCenters.front() - iconSize / 2;
    for (std::size_t i = 0; i < packed.size(); ++i) {
        const double gap = i == 0 ? 0 : baseCenters[i] - baseCenters[i - 1] - iconSize;
        const double half = iconSize * scales[i] / 2;
        packed[i] = edge + gap + half;
        edge = packed[i] + half;
    }
    return packed;
}

double packedLength(std::span<const double> packedCenters, std::span<const double> scales,
                    double iconSize) {
    if (packedCenters.empty() || scales.empty())
        return 0;
    const double farEdge = packedCenters.back() + iconSize * scales.back() / 2;
    const double leadingPadding = packedCenters.front() - iconSize * scales.front() / 2;
    return farEdge + leadingPadding;
}

double anchoredShift(std::span<const double> baseCenters, std::span<const double> packedCenters,
                     const Lengths& lengths, std::optional<double> cursor) {
    const double centered = (lengths.container - lengths.base) / 2;
    if (!cursor || baseCenters.empty() || baseCenters.size() != packedCenters.size())
        return centered;
    const double shift = *cursor - mapped(*cursor - centered, baseCenters, packedCenters);
    const double room = lengths.container - lengths.packed;
    return std::clamp(shift, std::min(room, 0.0), std::max(room, 0.0));
}

double maxExtraLength(int tileCount, double iconSize, double magnification) {
    if (!(magnification > 1) || tileCount < 1 || !(radius(iconSize) > 0))
        return 0;
    // The number of tiles on each side that are within the radius. Others do not grow.
    constexpr int reach = static_cast<int>(radiusSlots);
    const int middle = tileCount / 2;
    double extra = 0;
    for (int i = std::max(middle - reach, 0); i <= std::min(middle + reach, tileCount - 1); ++i) {
        const double distance = std::abs(i - middle) * slot(iconSize);
        extra += iconSize * (scaleAt(distance, magnification, radius(iconSize)) - 1);
    }
    return extra;
}

}
