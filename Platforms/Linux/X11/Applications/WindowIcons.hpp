/// Parses the property `_NET_WM_ICON`, which any client can fill with arbitrary data.
#pragma once

#include "Applications/ClientWindows/WindowIconSource.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vireline::x11::WindowIcons {

/// Pixels per side; larger images are treated as invalid.
inline constexpr std::uint32_t maximumEdge = 1024;
inline constexpr std::size_t maximumCount = 16;

/// The property holds the width, height and pixels of each image. Parsing stops at the first image
/// that is empty, too large or truncated. Returns the smallest first.
[[nodiscard]] std::vector<xdg::WindowIcon> parse(std::span<const std::uint32_t> items);

}
