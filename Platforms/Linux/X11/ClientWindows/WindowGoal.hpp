/// Where a window was asked to go, and the resulting position in pixels.
#pragma once

#include "ClientWindows/WindowSnapshot.hpp"
#include "Displays/DisplayGeometry.hpp"
#include "Foundation/Geometry.hpp"

#include <span>

namespace vireline::x11 {

struct WindowGoal {
    /// The outer frame in event space. Its centre determines the display.
    Rect frame;
    /// Whether the size was requested too. Otherwise it is the size that the window had at the time
    /// of the request; if it has another size there, its centre is what counts.
    bool isSized = false;
    /// The display's area without other programs' panels, in event space. A sized frame that covers
    /// all of it except a strip at one edge keeps that strip free for the dock: a window that
    /// cannot be that small extends beyond the frame at the opposite edge.
    Rect visible{};

    bool operator==(const WindowGoal&) const = default;
};

namespace WindowGoals {

/// The outer frame that the window should get, within its size hints: never over the dock, and
/// inside the display as far as it fits. `displays` must not be empty.
[[nodiscard]] PixelRect outerFrame(const WindowGoal& goal, const WindowSnapshot& window,
                                   std::span<const Display> displays);

/// Whether the window's centre is on the requested display.
[[nodiscard]] bool isOnDisplay(const WindowGoal& goal, const WindowSnapshot& window,
                               std::span<const Display> displays);

}
}
