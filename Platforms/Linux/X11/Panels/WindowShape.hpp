/// A window's shape, its input region and the region behind which the compositor blurs. Sends only
/// changes to the server.
#pragma once

#include "Connection/PixelRect.hpp"

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <optional>
#include <span>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class WindowShape {
public:
    /// For a newly created window.
    WindowShape(const X11Connection& connection, xcb_window_t window)
        : connection_(connection), window_(window) {}

    void setBounding(std::vector<xcb_rectangle_t> rectangles);
    void setInput(const PixelRect& region);
    /// An empty list means no blur.
    void setBlurred(std::vector<xcb_rectangle_t> region);

    /// Sends the input region again: a window manager that has reparented the window may copy the
    /// shape to its frame only when it changes.
    void resendInput() const { sendInput(); }

    /// Extends both regions by a copy at `offset`, so that the pixels stay covered until the window
    /// manager has applied a move by the opposite and the new regions are set.
    void coverUpcomingMove(PixelPoint offset);

    /// Whether this shape lets the window receive the pointer at this pixel.
    [[nodiscard]] bool takesPointer(int x, int y) const;

private:
    void sendBounding() const;
    void sendInput() const;
    void send(xcb_shape_kind_t kind, std::span<const xcb_rectangle_t> rectangles) const;

    const X11Connection& connection_;
    xcb_window_t window_;
    std::optional<std::vector<xcb_rectangle_t>> bounding_;
    std::optional<PixelRect> input_;
    std::vector<xcb_rectangle_t> blurred_;
    PixelPoint coveredOffset_;
};

}
