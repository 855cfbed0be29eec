/// Pure geometry of the magnified strip. Lengths are points along the dock's axis, measured from
/// the strip's leading edge unless said otherwise.
#pragma once

#include "Model/DockOrdering.hpp"

#include <optional>
#include <span>
#include <vector>

namespace vireline::DockMagnifier {

/// How far the pointer's influence reaches, in tile slots.
inline constexpr double radiusSlots = 2.5;

/// The influence radius for icons of this size.
[[nodiscard]] double radius(double iconSize) noexcept;

/// Centres of the tiles at rest.
[[nodiscard]] std::vector<double> baseCenters(const DockOrdering::Counts& counts, double iconSize);

/// One scale per centre: `magnification` under the cursor, falling as cos² to 1 at `radius`.
/// All ones when there is no cursor or nothing to magnify.
[[nodiscard]] std::vector<double> scales(std::span<const double> centers,
                                         std::optional<double> cursor, double magnification,
                                         double radius);

/// Centres after the tiles have grown in place, keeping the gaps between them. The base centres
/// unchanged when the counts differ.
[[nodiscard]] std::vector<double> packedCenters(std::span<const double> baseCenters,
                                                std::span<const double> scales, double iconSize);

/// Length of the grown strip, its trailing padding equal to its leading one; 0 without tiles.
[[nodiscard]] double packedLength(std::span<const double> packedCenters,
                                  std::span<const double> scales, double iconSize);

struct Lengths {
    double base = 0;
    double packed = 0;
    double container = 0;
};

/// Where the grown strip's leading edge lies in its container, so that the point of the strip under
/// the pointer stays under it. `cursor` is measured from the container's leading edge; without one
/// the resting strip is centred.
[[nodiscard]] double anchoredShift(std::span<const double> baseCenters,
                                   std::span<const double> packedCenters, const Lengths& lengths,
                                   std::optional<double> cursor);

/// The most that magnification can add to the strip's length, with the cursor on the middle tile.
[[nodiscard]] double maxExtraLength(int tileCount, double iconSize, double magnification);

}
