/// The pictures in the property `_NET_WM_ICON`, which anybody can fill with anything.
#pragma once

#include "Applications/WindowIconSource.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vireline::x11::WindowIcons {

/// Pixels along an edge; a larger picture is taken for nonsense.
inline constexpr std::uint32_t maximumEdge = 1024;
inline constexpr std::size_t maximumCount = 16;

/// The property holds, for each picture, its width, its height and its pixels. Reading ends at the
/// first that is empty, too large or cut off. The smallest first.
[[nodiscard]] std::vector<WindowIcon> parse(std::span<const std::uint32_t> items);

}
