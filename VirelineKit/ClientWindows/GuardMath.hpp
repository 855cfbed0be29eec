/// Computes bands along the bottom edges of displays, and keeps the pointer out of them. Zones and
/// points are in event space: points, origin at the primary display's top-left corner, y downwards.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Layout/ScreenSnapshot.hpp"

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace vireline::GuardMath {

/// The height of a band, in points.
inline constexpr double bandDepth = 3;

/// The bands of the guarded displays, in the order of `screens`, the first of which must be the
/// primary display.
[[nodiscard]] std::vector<Rect> guardZones(std::span<const ScreenSnapshot> screens,
                                           const std::set<std::uint32_t>& guarded);

/// Moves a pointer that is below a band's top straight up to that top. Any distance below counts,
/// since a fast pointer may skip the band. nullopt if the pointer may stay.
[[nodiscard]] std::optional<Point> clamp(Point point, std::span<const Rect> zones) noexcept;

/// The frames of all displays in event space, in the order of `screens`.
[[nodiscard]] std::vector<Rect> displayFrames(std::span<const ScreenSnapshot> screens);

/// The same, if displays may be arranged above one another: a pointer may stay if it is on another
/// display, or in a band that leads to one. For a pointer outside all displays, the band of the
/// lowest display above it counts, if that display has one.
[[nodiscard]] std::optional<Point> clamp(Point point, std::span<const Rect> zones,
                                         std::span<const Rect> displays) noexcept;

}
