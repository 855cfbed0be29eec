#include "Panels/Surfaces/LayerShellContext.hpp"

#include "Connection/LayerShell.hpp"

#include <xdg-shell-client-protocol.h>

namespace vireline::wayland {
namespace {

constexpr std::uint32_t baseVersion = 3;

/// Compositors consider a client that does not answer pings hung.
constexpr xdg_wm_base_listener alive{
    .ping = [](void* /*data*/, xdg_wm_base* base, std::uint32_t serial) {
        xdg_wm_base_pong(base, serial);
    }};

}

LayerShellContext::LayerShellContext(WaylandConnection& theConnection)
    : connection(theConnection)
    , shell(connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, layerShellVersion))
    , base(connection.bind<xdg_wm_base>(xdg_wm_base_interface, baseVersion)) {
    if (base)
        xdg_wm_base_add_listener(base.get(), &alive, nullptr);
}

}
