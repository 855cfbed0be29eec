/// The picture of one window and its way to the X server, pixel for pixel: through memory that both
/// share, where they can, else through the connection.
#pragma once

#include "Painting/Damage.hpp"
#include "X11/DrawingConnection.hpp"
#include "X11/SharedMemory.hpp"

#include <xcb/xcb.h>

#include <QImage>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace vireline::x11 {

class X11Connection;

class PanelSurface {
public:
    /// For a window that exists for as long as this does.
    PanelSurface(const X11Connection& connection, const DrawingConnection& drawing,
                 xcb_window_t window);
    PanelSurface(const PanelSurface&) = delete;
    PanelSurface& operator=(const PanelSurface&) = delete;
    PanelSurface(PanelSurface&&) = delete;
    PanelSurface& operator=(PanelSurface&&) = delete;
    ~PanelSurface();

    /// Whether the window can have translucent pixels, given a compositor.
    [[nodiscard]] bool hasAlpha() const noexcept { return depth_ == 32; }

    /// What was painted is lost if the size differs from the one before.
    void resize(QSize pixels);

    [[nodiscard]] QRect area() const { return image_.rect(); }
    [[nodiscard]] const QImage& image() const noexcept { return image_; }

    /// What to paint on; premultiplied colours. Waits for the server if it may not have read yet
    /// what was sent before.
    [[nodiscard]] QImage& canvas();

    /// Has the server itself paint the picture where the window appears, so that it is never seen
    /// without; until `endBackground`. Colours as for `upload`.
    void beginBackground(std::optional<std::uint32_t> base);
    void endBackground();

    /// Sends the pixels; over `base`, an opaque colour, where one is given.
    void upload(const Damage& damage, std::optional<std::uint32_t> base);

private:
    void uploadRect(xcb_drawable_t to, const QRect& rect, std::optional<std::uint32_t> base);
    void share(xcb_drawable_t to, const QRect& rect);
    void sendInBands(xcb_drawable_t to, const QRect& rect, std::optional<std::uint32_t> base);
    void send(xcb_drawable_t to, const QRect& rect);

    const DrawingConnection& connection_;
    xcb_window_t window_;
    xcb_gcontext_t context_;
    std::uint8_t depth_ = 0;
    /// Where the image's pixels are, if the server takes them from there.
    std::unique_ptr<SharedMemory> memory_;
    bool canShare_ = false;
    /// Behind what the server was last told to take from the shared memory.
    std::optional<ServerMark> read_;
    QImage image_;
    /// The rows on their way, kept to spare an allocation each time.
    std::vector<std::uint32_t> rows_;
};

}
