/// Finds the display that holds the desktop's own dock.
#pragma once

#include "Layout/ScreenSnapshot.hpp"

#include <optional>
#include <span>

namespace vireline::DockLocationDetector {

/// The first display whose visible frame is inset at the bottom, left or right, otherwise the first
/// display; nullopt only for an empty list. The top edge is ignored, since menu bars inset it too.
[[nodiscard]] std::optional<std::uint32_t> dockHost(std::span<const ScreenSnapshot> screens);

}
