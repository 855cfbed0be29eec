/// A window's shape, its input region and the region behind which the compositor blurs. Sends only
/// changes to the server.
#pragma once

#include "Connection/PixelRect.hpp"

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <optional>
#include <utility>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class WindowShape {
public:
    /// `window` must be newly created, without any shape.
    WindowShape(const X11Connection& connection, xcb_window_t window)
        : connection_(connection), window_(window) {}

    using Rectangles = std::vector<xcb_rectangle_t>;

    void setBounding(Rectangles rectangles) { bounding_ = std::move(rectangles); }
    void setInput(const PixelRect& region) { input_ = region; }
    /// Extends both regions by a copy at `offset`, so that the pixels stay covered until the window
    /// manager has applied a move by the opposite and the new regions are set.
    void coverUpcomingMove(PixelPoint offset) { upcomingOffset_ = offset; }
    /// Sends what of the above has changed, each region in one request: while a window is moved
    /// there must be no moment at which a region covers only one of the two places.
    void apply();

    /// Sends the input region again: a window manager that has reparented the window may copy the
    /// shape to its frame only when it changes.
    void resendInput() const;

    /// Sent at once. An empty list means no blur.
    void setBlurred(Rectangles region);

    /// Whether this shape lets the window receive the pointer at this pixel.
    [[nodiscard]] bool takesPointer(int x, int y) const;

private:
    [[nodiscard]] Rectangles covering(Rectangles rectangles) const;
    void change(xcb_shape_kind_t kind, Rectangles rectangles,
                std::optional<Rectangles>& sent) const;
    void send(xcb_shape_kind_t kind, const Rectangles& rectangles) const;

    const X11Connection& connection_;
    xcb_window_t window_;
    std::optional<Rectangles> bounding_;
    std::optional<PixelRect> input_;
    PixelPoint upcomingOffset_;
    Rectangles blurred_;
    std::optional<Rectangles> sentBounding_;
    std::optional<Rectangles> sentInput_;
};

}
