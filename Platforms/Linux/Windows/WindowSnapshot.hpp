/// One window of another program as it stands on the screen.
#pragma once

#include "Windows/SizeHints.hpp"
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

struct WindowSnapshot {
    /// The client area, in root coordinates.
    PixelRect client;
    /// What the window manager puts around it, such as the title bar.
    FrameExtents decoration;
    /// What the window itself keeps free around what the user takes for it, such as a shadow.
    FrameExtents shadow;
    SizeHints hints;
    bool isMaximized = false;
    bool isFullScreen = false;
    bool isIconified = false;
    /// The desktop that it has to be moved to in order to be seen; nothing if it is on that one.
    std::optional<std::uint32_t> currentDesktopElsewhere;

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
