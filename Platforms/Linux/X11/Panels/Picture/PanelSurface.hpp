/// The image of one window and its transfer to the X server: through shared memory if possible,
/// otherwise through the connection.
#pragma once

#include "Connection/DrawingConnection.hpp"
#include "Connection/SharedMemory.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Painting/Pixels/Damage.hpp"

#include <xcb/xcb.h>

#include <QImage>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class PanelSurface : private NonCopyable {
public:
    /// The window must outlive this object.
    PanelSurface(const X11Connection& connection, const DrawingConnection& drawing,
                 xcb_window_t window);
    ~PanelSurface();

    /// Whether the window supports translucent pixels, given a compositor.
    [[nodiscard]] bool hasAlpha() const noexcept { return depth_ == 32; }

    /// Discards the content if the size changes.
    void resize(QSize pixels);

    [[nodiscard]] QRect area() const { return image_.rect(); }
    [[nodiscard]] const QImage& image() const noexcept { return image_; }

    /// The image to paint on, with premultiplied colours. Blocks while the server may still be
    /// reading what was sent before.
    [[nodiscard]] QImage& canvas();

    /// Lets the server itself paint the picture as soon as the window appears, so that it is never
    /// seen without; until `endBackground`. `base` is as for `upload`.
    void beginBackground(std::optional<std::uint32_t> base);
    void endBackground();

    /// Sends the pixels, blended over the opaque colour `base` if it is set.
    void upload(const xdg::Damage& damage, std::optional<std::uint32_t> base);

private:
    void uploadRect(xcb_drawable_t to, const QRect& rect, std::optional<std::uint32_t> base);
    void share(xcb_drawable_t to, const QRect& rect);
    void sendInBands(xcb_drawable_t to, const QRect& rect, std::optional<std::uint32_t> base);
    void send(xcb_drawable_t to, const QRect& rect);

    const DrawingConnection& connection_;
    xcb_window_t window_;
    xcb_gcontext_t context_;
    std::uint8_t depth_ = 0;
    /// The image's pixels, if they are in memory shared with the server.
    std::unique_ptr<SharedMemory> memory_;
    bool canShare_ = false;
    /// Reached once the server has read everything sent from the shared memory so far.
    std::optional<ServerMark> read_;
    QImage image_;
    /// Transfer buffer; kept to avoid an allocation per frame.
    std::vector<std::uint32_t> rows_;
};

}
