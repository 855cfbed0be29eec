/// Moves windows through what one compositor offers beyond the protocols.
#pragma once

#include "Applications/ClientWindows/WindowID.hpp"
#include "Foundation/Geometry.hpp"
#include "Foundation/Result.hpp"

namespace vireline::wayland {

/// Frames include what the compositor draws around a window. They are in its own coordinates:
/// logical pixels, y downwards. Each call may block for up to `seconds`.
class WindowPlacer {
public:
    virtual ~WindowPlacer() = default;

    /// Whether the compositor can be reached.
    [[nodiscard]] virtual bool isAvailable() = 0;

    [[nodiscard]] virtual Result<Rect> frame(xdg::WindowID window, double seconds) = 0;

    /// Moves the window's corner there, and the window to the desktop that is shown there.
    virtual Result<void> move(xdg::WindowID window, Point corner, double seconds) = 0;

    virtual Result<void> place(xdg::WindowID window, const Rect& frame, double seconds) = 0;
};

}
