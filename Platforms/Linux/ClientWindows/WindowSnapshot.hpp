/// One window of another program as it stands on the screen.
#pragma once

#include "ClientWindows/SizeHints.hpp"
#include "X11/PixelRect.hpp"

#include <cstdint>
#include <optional>

namespace vireline::x11 {

/// Pixels at each side.
struct FrameExtents {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    bool operator==(const FrameExtents&) const = default;
};

/// What of its display the window fills by the window manager's doing, so that it cannot be moved.
struct WindowFill {
    bool width = false;
    bool height = false;
    bool screen = false;

    [[nodiscard]] bool isAny() const noexcept { return width || height || screen; }

    bool operator==(const WindowFill&) const = default;
};

struct WindowSnapshot {
    /// The client area, in root coordinates.
    PixelRect client;
    /// What the window manager puts around it, such as the title bar.
    FrameExtents decoration;
    /// What the window itself keeps free around what the user takes for it, such as a shadow.
    FrameExtents shadow;
    SizeHints hints;
    WindowFill fill;
    bool isIconified = false;
    /// Nothing for a window that is on every desktop or does not say.
    std::optional<std::uint32_t> desktop;
    /// The one that is shown.
    std::optional<std::uint32_t> currentDesktop;

    [[nodiscard]] bool isOnAnotherDesktop() const noexcept {
        return desktop && currentDesktop && *desktop != *currentDesktop;
    }

    /// What the user takes for the window.
    [[nodiscard]] PixelRect outer() const noexcept {
        return {client.x - decoration.left + shadow.left, client.y - decoration.top + shadow.top,
                client.width + aroundWidth(), client.height + aroundHeight()};
    }

    /// The client area that goes with an outer frame, any size taken.
    [[nodiscard]] PixelRect clientFor(const PixelRect& outer) const noexcept {
        return {outer.x + decoration.left - shadow.left, outer.y + decoration.top - shadow.top,
                outer.width - aroundWidth(), outer.height - aroundHeight()};
    }

    /// The outer size that the window can have in place of this one.
    [[nodiscard]] PixelSize constrained(PixelSize outer) const noexcept {
        const PixelSize inner =
            hints.constrained({outer.width - aroundWidth(), outer.height - aroundHeight()});
        return {inner.width + aroundWidth(), inner.height + aroundHeight()};
    }

    bool operator==(const WindowSnapshot&) const = default;

private:
    [[nodiscard]] int aroundWidth() const noexcept {
        return decoration.left + decoration.right - shadow.left - shadow.right;
    }
    [[nodiscard]] int aroundHeight() const noexcept {
        return decoration.top + decoration.bottom - shadow.top - shadow.bottom;
    }
};

}
