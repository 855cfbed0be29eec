#include "Panels/Surfaces/DockContext.hpp"

#include "Connection/LayerShell.hpp"

#include <blur-client-protocol.h>
#include <fractional-scale-v1-client-protocol.h>
#include <viewporter-client-protocol.h>

namespace vireline::wayland {
namespace {

/// The first version in which damage can be given in a buffer's pixels.
constexpr std::uint32_t compositorVersion = 4;

}

DockContext::DockContext(const Needs& needs)
    : connection(needs.own.globals())
    , seat(needs.seat)
    , screens(needs.screens)
    , appearance(needs.appearance)
    , menus(needs.qt)
    , outputs(connection)
    , compositor(connection.bind<wl_compositor>(wl_compositor_interface, compositorVersion))
    , memory(connection.bind<wl_shm>(wl_shm_interface, 1))
    , shell(connection.bind<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, layerShellVersion))
    , viewporter(connection.bind<wp_viewporter>(wp_viewporter_interface, 1))
    , fractionalScales(connection.bind<wp_fractional_scale_manager_v1>(
          wp_fractional_scale_manager_v1_interface, 1))
    , globals_(connection.observe([this] { updateBlur(); })) {
    if (!viewporter || !fractionalScales) {
        viewporter.reset();
        fractionalScales.reset();
    }
    updateBlur();
}

DockContext::~DockContext() = default;

/// The user can switch the effect on and off at any time.
void DockContext::updateBlur() {
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
