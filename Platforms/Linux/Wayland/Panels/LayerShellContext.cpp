#include "Panels/LayerShellContext.hpp"

#include "Connection/LayerShell.hpp"

#include <blur-client-protocol.h>
#include <xdg-shell-client-protocol.h>

namespace vireline::wayland {
namespace {

constexpr std::uint32_t baseVersion = 3;

/// The compositor considers a client hung that does not answer.
constexpr xdg_wm_base_listener alive{
    .ping = [](void* /*data*/, xdg_wm_base* base, std::uint32_t serial) {
        xdg_wm_base_pong(base, serial);
    }};

}

LayerShellContext::LayerShellContext(WaylandConnection& theConnection, WaylandScreens& theScreens,
                                     xdg::Appearance& theAppearance)
    : connection(theConnection)
    , screens(theScreens)
    , appearance(theAppearance)
    , compositor(connection.bind<wl_compositor>(wl_compositor_interface, 1))
    , shell(connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, layerShellVersion))
    , base(connection.bind<xdg_wm_base>(xdg_wm_base_interface, baseVersion))
    , globals_(connection.observe([this] { updateBlur(); })) {
    if (base)
        xdg_wm_base_add_listener(base.get(), &alive, nullptr);
    updateBlur();
}

LayerShellContext::~LayerShellContext() = default;

/// The user can switch the effect on and off at any time.
void LayerShellContext::updateBlur() {
    const bool isOffered = connection.offered(org_kde_kwin_blur_manager_interface.name) > 0;
    if (isOffered == (blur_ != nullptr))
        return;
    if (isOffered) {
        blur_ = connection.bind<org_kde_kwin_blur_manager>(org_kde_kwin_blur_manager_interface, 1);
    } else {
        blur_.reset();
    }
    blurObservers_.notify();
}

}
