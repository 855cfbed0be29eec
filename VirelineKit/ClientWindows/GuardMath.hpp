/// Bands along the bottom edges of displays, and how a pointer is kept out of them. Zones and
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

/// How deep a band is, in points.
inline constexpr double bandDepth = 3;

/// The band of every guarded display, in the order of the screens, the first of which is the
/// primary display.
[[nodiscard]] std::vector<Rect> guardZones(std::span<const ScreenSnapshot> screens,
                                           const std::set<std::uint32_t>& guarded);

/// Where a pointer below a band's top goes: straight up to that top, from however far below, so
/// that no speed carries it past the band. Nothing for a pointer that may stay.
[[nodiscard]] std::optional<Point> clamp(Point point, std::span<const Rect> zones) noexcept;

/// All displays' frames in event space, in the order of the screens.
[[nodiscard]] std::vector<Rect> displayFrames(std::span<const ScreenSnapshot> screens);

/// The same where displays may lie below one another: a pointer that is on another display, or on
/// its way there through a band, may stay. Beyond every display, the band of the lowest display
/// above the pointer counts, if that has one.
[[nodiscard]] std::optional<Point> clamp(Point point, std::span<const Rect> zones,
                                         std::span<const Rect> displays) noexcept;

}
