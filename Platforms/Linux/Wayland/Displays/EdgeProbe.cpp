#include "Displays/EdgeProbe.hpp"

#include "Connection/LayerShell.hpp"
#include "Connection/WaylandConnection.hpp"

#include <cstdint>
#include <utility>

namespace vireline::wayland {
namespace {

std::uint32_t anchor(DockPosition edge) {
    switch (edge) {
    case DockPosition::left:
        return ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT;
    case DockPosition::right:
        return ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
    case DockPosition::bottom:
        break;
    }
    return ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM;
}

}

struct EdgeProbe::Events {
    static void configure(void* data, zwlr_layer_surface_v1* role, std::uint32_t serial,
                          std::uint32_t /*width*/, std::uint32_t /*height*/) {
        auto& self = *static_cast<EdgeProbe*>(data);
        zwlr_layer_surface_v1_ack_configure(role, serial);
        wl_surface_attach(self.surface_.get(), self.pixel_->buffer(), 0, 0);
        wl_surface_damage(self.surface_.get(), 0, 0, 1, 1);
        wl_surface_commit(self.surface_.get());
    }
    static void closed(void* /*data*/, zwlr_layer_surface_v1* /*role*/) {}
    static void enter(void* data, wl_surface* /*surface*/, wl_output* output) {
        auto& self = *static_cast<EdgeProbe*>(data);
        if (output == self.output_)
            self.setReserved(true);
    }
    static void leave(void* data, wl_surface* /*surface*/, wl_output* output) {
        auto& self = *static_cast<EdgeProbe*>(data);
        if (output == self.output_)
            self.setReserved(false);
    }

    static constexpr zwlr_layer_surface_v1_listener role{.configure = configure, .closed = closed};
    static constexpr wl_surface_listener surface{.enter = enter, .leave = leave};
};

EdgeProbe::EdgeProbe(const WaylandConnection& connection, wl_output* output, DockPosition edge,
                     std::function<void()> onChange)
    : output_(output)
    , onChange_(std::move(onChange))
    , compositor_(connection.bind<wl_compositor>(wl_compositor_interface, 1))
    , shell_(
          connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, layerShellVersion)) {
    if (const auto memory = connection.bind<wl_shm>(wl_shm_interface, 1))
        pixel_ = SharedImage::make(*memory, {1, 1});
    if (!compositor_ || !shell_ || !pixel_)
        return;
    surface_.reset(wl_compositor_create_surface(compositor_.get()));
    wl_surface_add_listener(surface_.get(), &Events::surface, this);
    const Proxy<wl_region> nothing{wl_compositor_create_region(compositor_.get())};
    wl_surface_set_input_region(surface_.get(), nothing.get());
    // Above the panel itself and above windows: wlroots since 0.17 counts a surface that something
    // opaque covers as one that has left the display.
    role_.reset(zwlr_layer_shell_v1_get_layer_surface(
        shell_.get(), surface_.get(), output, ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "vireline-probe"));
    zwlr_layer_surface_v1_add_listener(role_.get(), &Events::role, this);
    zwlr_layer_surface_v1_set_anchor(role_.get(), anchor(edge));
    zwlr_layer_surface_v1_set_size(role_.get(), 1, 1);
    // Only the margin at the anchored edge counts.
    zwlr_layer_surface_v1_set_margin(role_.get(), 0, -1, -1, -1);
    wl_surface_commit(surface_.get());
    connection.flush();
}

EdgeProbe::~EdgeProbe() = default;

void EdgeProbe::setReserved(bool isReserved) {
    if (std::exchange(isReserved_, isReserved) != isReserved)
        onChange_();
}

}
