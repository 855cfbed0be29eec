/// Where a window was asked to be, and which pixels that means for it.
#pragma once

#include "ClientWindows/WindowSnapshot.hpp"
#include "Displays/DisplayGeometry.hpp"
#include "Foundation/Geometry.hpp"

#include <span>

namespace vireline::x11 {

struct WindowGoal {
    /// The outer frame in event space. Its centre says which display is meant.
    Rect frame;
    /// Whether the size is asked for as well. If not, it is the size that the window had when it
    /// was asked to go there: should it have another one there, its centre is what counts.
    bool isSized = false;
    /// The part of the display that other programs' panels leave, in event space. A sized frame
    /// that is all of it but a strip at one edge keeps that strip free for the dock: a window that
    /// cannot be as small reaches out of the frame at the opposite edge.
    Rect visible{};

    bool operator==(const WindowGoal&) const = default;
};

namespace WindowGoals {

/// The outer frame that the window should have, within its size hints: never over the dock, and
/// inside the display as far as it fits. There is at least one display.
[[nodiscard]] PixelRect outerFrame(const WindowGoal& goal, const WindowSnapshot& window,
                                   std::span<const Display> displays);

/// Whether the window's centre is on the display that is meant.
[[nodiscard]] bool isOnDisplay(const WindowGoal& goal, const WindowSnapshot& window,
                               std::span<const Display> displays);

}
}
