/// Finds the displays that a full-screen window covers. Kept for a later version; nothing asks it
/// yet.
#pragma once

#include "Layout/ScreenSnapshot.hpp"

#include <set>
#include <span>

namespace vireline {

/// A visible window, in the coordinates of `ScreenSnapshot::frame`.
struct WindowInfo {
    Rect frame;
    /// 0 is the layer of ordinary application windows.
    int layer = 0;

    bool operator==(const WindowInfo&) const = default;
};

namespace FullScreenDetector {

/// The displays whose frame an ordinary window matches, within 2 points of position and 4 points of
/// size.
[[nodiscard]] std::set<std::uint32_t>
displaysWithFullScreenWindow(std::span<const WindowInfo> windows,
                             std::span<const ScreenSnapshot> screens);

}
}
