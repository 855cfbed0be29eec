/// The picture of one window and its way to the X server, pixel for pixel.
#pragma once

#include <xcb/xcb.h>

#include <QImage>
#include <QRegion>
#include <cstdint>
#include <optional>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class PanelSurface {
public:
    /// For a window that exists for as long as this does.
    PanelSurface(const X11Connection& connection, xcb_window_t window);
    PanelSurface(const PanelSurface&) = delete;
    PanelSurface& operator=(const PanelSurface&) = delete;
    PanelSurface(PanelSurface&&) = delete;
    PanelSurface& operator=(PanelSurface&&) = delete;
    ~PanelSurface();

    /// Whether the window can have translucent pixels, given a compositor.
    [[nodiscard]] bool hasAlpha() const noexcept { return depth_ == 32; }

    /// What was painted is lost if the size differs from the one before.
    void resize(QSize pixels);

    /// What to paint on; premultiplied colours.
    [[nodiscard]] QImage& image() noexcept { return image_; }

    /// Has the server itself paint the picture where the window appears, so that it is never seen
    /// without; until `endBackground`. Colours as for `upload`.
    void beginBackground(std::optional<std::uint32_t> base);
    void endBackground();

    /// Sends the region's pixels; over `base`, an opaque colour, where one is given.
    void upload(const QRegion& region, std::optional<std::uint32_t> base);

private:
    void uploadRect(xcb_drawable_t to, const QRect& rect, std::optional<std::uint32_t> base);
    void send(xcb_drawable_t to, const QRect& rect);

    const X11Connection& connection_;
    xcb_window_t window_;
    xcb_gcontext_t context_;
    std::uint8_t depth_ = 0;
    QImage image_;
    /// The rows on their way, kept to spare an allocation each time.
    std::vector<std::uint32_t> rows_;
};

}
