/// Which displays are covered by a full-screen window.
#pragma once

#include "Layout/ScreenSnapshot.hpp"

#include <set>
#include <span>

namespace vireline {

/// A window on screen, in the space of `ScreenSnapshot::frame`.
struct WindowInfo {
    Rect frame;
    /// 0 is the layer of ordinary application windows.
    int layer = 0;

    bool operator==(const WindowInfo&) const = default;
};

namespace FullScreenDetector {

/// Displays whose frame an ordinary window matches to within 2 points of position and 4 of size.
[[nodiscard]] std::set<std::uint32_t>
displaysWithFullScreenWindow(std::span<const WindowInfo> windows,
                             std::span<const ScreenSnapshot> screens);

}
}
