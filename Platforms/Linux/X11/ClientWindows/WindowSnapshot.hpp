/// The state of another program's window at one moment.
#pragma once

#include "ClientWindows/SizeHints.hpp"
#include "Connection/PixelRect.hpp"

#include <cstdint>
#include <optional>

namespace vireline::x11 {

/// Pixels on each side.
struct FrameExtents {
    int left = 0;
    int right = 0;
    int top = 0;
    int bottom = 0;

    bool operator==(const FrameExtents&) const = default;
};

/// How the window manager makes the window fill its display, which prevents it from being moved.
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
    /// The window manager's decoration, such as the title bar.
    FrameExtents decoration;
    /// What the window itself leaves free around its visible part, such as a shadow.
    FrameExtents shadow;
    SizeHints hints;
    WindowFill fill;
    bool isIconified = false;
    /// nullopt for a window that is on every desktop or does not say.
    std::optional<std::uint32_t> desktop;
    /// The desktop that is currently shown.
    std::optional<std::uint32_t> currentDesktop;

    [[nodiscard]] bool isOnAnotherDesktop() const noexcept {
        return desktop && currentDesktop && *desktop != *currentDesktop;
    }

    /// The visible outline of the window, as the user sees it.
    [[nodiscard]] PixelRect outer() const noexcept {
        return {client.x - decoration.left + shadow.left, client.y - decoration.top + shadow.top,
                client.width + aroundWidth(), client.height + aroundHeight()};
    }

    /// The client area for an outer frame, without regard to size hints.
    [[nodiscard]] PixelRect clientFor(const PixelRect& outer) const noexcept {
        return {outer.x + decoration.left - shadow.left, outer.y + decoration.top - shadow.top,
                outer.width - aroundWidth(), outer.height - aroundHeight()};
    }

    /// As `SizeHints::constrained`, but for outer sizes.
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
