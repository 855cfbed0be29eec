/// The surface of one dock on a connection of our own: its place, its pixels, its scale and its
/// frames.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Panels/Surfaces/LayerRole.hpp"

#include <QRect>
#include <QRegion>
#include <chrono>
#include <functional>
#include <memory>
#include <span>

namespace vireline::wayland {

class DockContext;
class Output;
class SurfaceInput;

class DockSurface : private NonCopyable {
public:
    struct Events {
        /// As in `LayerRole`; `configured` is also called when the scale has changed.
        std::function<void()> configured;
        std::function<void()> closed;
        /// The compositor is ready for the frame after the latest picture.
        std::function<void()> frameDue;
    };

    /// `place` is relative to the display. All must outlive this object, except the output.
    DockSurface(DockContext& context, const Output& output, const QRect& place, SurfaceInput& input,
                Events events);
    ~DockSurface();

    /// To be called when the output has changed.
    void follow(const Output& output);

    /// Pixels per point.
    [[nodiscard]] double scale() const noexcept { return scale_; }
    [[nodiscard]] wl_surface& get() const noexcept { return *surface_; }

    [[nodiscard]] const QRect& place() const noexcept { return role_->place(); }
    /// Takes effect with the next commit.
    void setPlace(const QRect& place);

    /// Where the surface gets the pointer, in points. Takes effect with the next commit.
    void setInput(const QRegion& region);

    /// Attaches a buffer of `scale` pixels per point. `changed` are the pixels in which it differs
    /// from the previous one. It is shown with the next commit.
    void attach(wl_buffer& buffer, std::span<const QRect> changed);
    /// Requests a call of `frameDue` after the next commit.
    void requestFrame();
    void commit();
    [[nodiscard]] bool isFramePending() const noexcept { return frame_ != nullptr; }

private:
    struct Listener;

    void learnFractionalScale();
    void setScale(double scale);
    void redrawBelow();

    DockContext& context_;
    Events events_;
    std::chrono::microseconds interval_;
    double scale_;
    bool isConfigured_ = false;
    Proxy<wl_surface> surface_;
    Proxy<wp_viewport> viewport_;
    Proxy<wp_fractional_scale_v1> fractionalScale_;
    Proxy<wl_callback> frame_;
    std::unique_ptr<LayerRole> role_;
};

}
