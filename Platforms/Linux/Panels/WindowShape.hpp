/// Which of a window's pixels exist, which take the pointer, and behind which the compositor blurs.
/// Sends only what differs from what was sent before.
#pragma once

#include "X11/PixelRect.hpp"

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <optional>
#include <span>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class WindowShape {
public:
    /// For a window that has just been created.
    WindowShape(const X11Connection& connection, xcb_window_t window)
        : connection_(connection), window_(window) {}

    void setBounding(std::vector<xcb_rectangle_t> rectangles);
    void setInput(const PixelRect& region);
    /// An empty list is nowhere.
    void setBlurred(std::vector<xcb_rectangle_t> region);

    /// Sends again what takes the pointer: a window manager that puts a frame around the window may
    /// give the frame that shape only when it hears of a new one.
    void resendInput() const { sendInput(); }

    /// Has the window exist, and take the pointer, this far beside its regions as well. A window
    /// that is about to move by the opposite, whenever the window manager comes to it, so keeps
    /// what is over it until its new regions are set.
    void setEcho(PixelPoint offset);

    /// Whether a pixel of the window takes the pointer, as far as this shape is concerned.
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
    PixelPoint echo_;
};

}
