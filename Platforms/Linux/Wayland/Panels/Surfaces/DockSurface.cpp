#include "Panels/Surfaces/DockSurface.hpp"

#include "Displays/Outputs.hpp"
#include "Input/Seat.hpp"
#include "Panels/Surfaces/DockContext.hpp"

#include <fractional-scale-v1-client-protocol.h>
#include <viewporter-client-protocol.h>
#include <wayland-client.h>

#include <utility>

namespace vireline::wayland {

struct DockSurface::Listener {
    static void preferred(void* data, wp_fractional_scale_v1* /*scale*/, std::uint32_t parts) {
        // The protocol counts scales in 120ths.
        constexpr double partsOfOne = 120;
        if (parts > 0)
            static_cast<DockSurface*>(data)->setScale(parts / partsOfOne);
    }
    static void done(void* data, wl_callback* /*callback*/, std::uint32_t /*time*/) {
        auto& self = *static_cast<DockSurface*>(data);
        self.frame_.reset();
        self.events_.frameDue();
    }

    static constexpr wp_fractional_scale_v1_listener scale{.preferred_scale = preferred};
    static constexpr wl_callback_listener frame{.done = done};
};

DockSurface::DockSurface(DockContext& context, const Output& output, const QRect& place,
                         SurfaceInput& input, Events events)
    : context_(context)
    , events_(std::move(events))
    , interval_(output.interval())
    , scale_(output.scale())
    , surface_(wl_compositor_create_surface(context.compositor.get())) {
    context.seat.surfaces().add(*surface_, input);
    learnFractionalScale();
    role_ = std::make_unique<LayerRole>(
        context.connection, *context.shell, *surface_, output.get(), place,
        LayerRole::Events{[this] {
                              if (!std::exchange(isConfigured_, true))
                                  events_.configured();
                          },
                          [this] { events_.closed(); }});
    setPlace(place);
}

DockSurface::~DockSurface() {
    context_.seat.surfaces().remove(*surface_);
}

/// Where scales can be fractional, the compositor announces the one that it prefers; the buffer
/// then has no scale of its own.
void DockSurface::learnFractionalScale() {
    if (!context_.fractionalScales)
        return;
    viewport_.reset(wp_viewporter_get_viewport(context_.viewporter.get(), surface_.get()));
    fractionalScale_.reset(wp_fractional_scale_manager_v1_get_fractional_scale(
        context_.fractionalScales.get(), surface_.get()));
    wp_fractional_scale_v1_add_listener(fractionalScale_.get(), &Listener::scale, this);
}

void DockSurface::follow(const Output& output) {
    interval_ = output.interval();
    if (!fractionalScale_)
        setScale(output.scale());
}

void DockSurface::setScale(double scale) {
    if (std::exchange(scale_, scale) != scale && isConfigured_)
        events_.configured();
}

void DockSurface::setPlace(const QRect& place) {
    if (isConfigured_ && place != role_->place())
        redrawBelow();
    role_->setPlace(place);
    if (viewport_)
        wp_viewport_set_destination(viewport_.get(), place.width(), place.height());
}

/// Makes the compositor redraw everything at the surface's present place. sway 1.7 forgets the old
/// place of a surface that moves or shrinks, except on the output at the layout's origin.
void DockSurface::redrawBelow() {
    wl_surface_damage(surface_.get(), 0, 0, place().width(), place().height());
    wl_surface_commit(surface_.get());
}

void DockSurface::setInput(const QRegion& region) {
    const Proxy<wl_region> sent{wl_compositor_create_region(context_.compositor.get())};
    for (const QRect& rect : region)
        wl_region_add(sent.get(), rect.x(), rect.y(), rect.width(), rect.height());
    wl_surface_set_input_region(surface_.get(), sent.get());
}

void DockSurface::attach(wl_buffer& buffer, std::span<const QRect> changed) {
    if (!viewport_)
        wl_surface_set_buffer_scale(surface_.get(), static_cast<std::int32_t>(scale_));
    wl_surface_attach(surface_.get(), &buffer, 0, 0);
    for (const QRect& rect : changed)
        wl_surface_damage_buffer(surface_.get(), rect.x(), rect.y(), rect.width(), rect.height());
}

void DockSurface::requestFrame() {
    if (frame_)
        return;
    // Compositors need not draw, and so announce, a frame in which nothing has changed.
    wl_surface_damage_buffer(surface_.get(), 0, 0, 1, 1);
    frame_.reset(wl_surface_frame(surface_.get()));
    wl_callback_add_listener(frame_.get(), &Listener::frame, this);
    context_.seat.frameBegins(interval_);
}

void DockSurface::commit() {
    wl_surface_commit(surface_.get());
    context_.connection.flush();
}

}
