/// The geometry of the magnified strip. Lengths are in points along the dock's axis, positions
/// relative to the strip's leading edge unless stated otherwise.
#pragma once

#include "Model/DockOrdering.hpp"

#include <optional>
#include <span>
#include <vector>

namespace vireline::DockMagnifier {

/// The radius within which the pointer magnifies, in tile slots.
inline constexpr double radiusSlots = 2.5;

/// The same radius in points, for icons of this size.
[[nodiscard]] double radius(double iconSize) noexcept;

/// Centres of the tiles at rest.
[[nodiscard]] std::vector<double> baseCenters(const DockOrdering::Counts& counts, double iconSize);

/// One scale per centre: `magnification` under the cursor, falling off as cos² to 1 at `radius`.
/// All 1 if there is no cursor or no magnification.
[[nodiscard]] std::vector<double> scales(std::span<const double> centers,
                                         std::optional<double> cursor, double magnification,
                                         double radius);

/// The centres of the grown tiles, with the same gaps between them. Returns the base centres if the
/// numbers of centres and scales differ.
[[nodiscard]] std::vector<double> packedCenters(std::span<const double> baseCenters,
                                                std::span<const double> scales, double iconSize);

/// The length of the grown strip, with a trailing padding equal to the leading one; 0 if there are
/// no tiles.
[[nodiscard]] double packedLength(std::span<const double> packedCenters,
                                  std::span<const double> scales, double iconSize);

struct Lengths {
    double base = 0;
    double packed = 0;
    double container = 0;
};

/// The position of the grown strip's leading edge in its container, such that the point of the
/// strip under the pointer stays there. `cursor` is relative to the container's leading edge;
/// without one, the strip is centred.
[[nodiscard]] double anchoredShift(std::span<const double> baseCenters,
                                   std::span<const double> packedCenters, const Lengths& lengths,
                                   std::optional<double> cursor);

/// The maximum length that magnification can add to the strip, which is with the cursor on the
/// middle tile.
[[nodiscard]] double maxExtraLength(int tileCount, double iconSize, double magnification);

}
