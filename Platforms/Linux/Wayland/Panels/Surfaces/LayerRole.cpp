#include "Panels/Surfaces/LayerRole.hpp"

#include "Connection/LayerShell.hpp"
#include "Connection/WaylandConnection.hpp"

#include <wayland-client.h>

#include <utility>

namespace vireline::wayland {
namespace {

/// The purpose of the surface. KWin takes one of this name for a panel, and any other for an
/// ordinary window, which it would give the keyboard with each click.
constexpr const char* purpose = "dock";

}

struct LayerRole::Listener {
    static void configure(void* data, zwlr_layer_surface_v1* role, std::uint32_t serial,
                          std::uint32_t /*width*/, std::uint32_t /*height*/) {
        zwlr_layer_surface_v1_ack_configure(role, serial);
        static_cast<LayerRole*>(data)->events_.configured();
    }
    static void closed(void* data, zwlr_layer_surface_v1* /*role*/) {
        static_cast<LayerRole*>(data)->events_.closed();
    }

    static constexpr zwlr_layer_surface_v1_listener listener{.configure = configure,
                                                             .closed = closed};
};

LayerRole::LayerRole(const WaylandConnection& connection, zwlr_layer_shell_v1& shell,
                     wl_surface& surface, wl_output* output, const QRect& place, Events events)
    : connection_(connection)
    , events_(std::move(events))
    , surface_(surface)
    , role_(zwlr_layer_shell_v1_get_layer_surface(&shell, &surface, output,
                                                  ZWLR_LAYER_SHELL_V1_LAYER_TOP, purpose)) {
    zwlr_layer_surface_v1_add_listener(role_.get(), &Listener::listener, this);
    zwlr_layer_surface_v1_set_anchor(role_.get(), ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP |
                                                      ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT);
    // Measured from the display's true corner, not from that of the area which panels leave free.
    constexpr int ignoresPanels = -1;
    zwlr_layer_surface_v1_set_exclusive_zone(role_.get(), ignoresPanels);
    setPlace(place);
    wl_surface_commit(&surface_);
    connection_.flush();
}

void LayerRole::setPlace(const QRect& place) {
    if (place == place_)
        return;
    if (place.size() != place_.size()) {
        zwlr_layer_surface_v1_set_size(role_.get(), static_cast<std::uint32_t>(place.width()),
                                       static_cast<std::uint32_t>(place.height()));
    }
    zwlr_layer_surface_v1_set_margin(role_.get(), place.y(), 0, 0, place.x());
    place_ = place;
}

void LayerRole::takeKeyboard() {
    zwlr_layer_surface_v1_set_keyboard_interactivity(
        role_.get(), ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE);
    wl_surface_commit(&surface_);
    connection_.flush();
}

void LayerRole::adopt(xdg_popup& popup) const {
    zwlr_layer_surface_v1_get_popup(role_.get(), &popup);
}

}
