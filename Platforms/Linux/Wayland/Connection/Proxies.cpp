#include "Connection/Proxies.hpp"

#include "Connection/LayerShell.hpp"

#include <blur-client-protocol.h>
#include <fractional-scale-v1-client-protocol.h>
#include <plasma-window-management-client-protocol.h>
#include <viewporter-client-protocol.h>
#include <wayland-client.h>
#include <wlr-foreign-toplevel-management-unstable-v1-client-protocol.h>
#include <xdg-activation-v1-client-protocol.h>
#include <xdg-output-unstable-v1-client-protocol.h>
#include <xdg-shell-client-protocol.h>

namespace vireline::wayland {

void DestroyProxy::operator()(wl_display* display) const {
    wl_display_disconnect(display);
}

void DestroyProxy::operator()(wl_buffer* buffer) const {
    wl_buffer_destroy(buffer);
}

void DestroyProxy::operator()(wl_callback* callback) const {
    wl_callback_destroy(callback);
}

void DestroyProxy::operator()(wl_compositor* compositor) const {
    wl_compositor_destroy(compositor);
}

void DestroyProxy::operator()(wl_data_device* device) const {
    if (wl_data_device_get_version(device) >= WL_DATA_DEVICE_RELEASE_SINCE_VERSION) {
        wl_data_device_release(device);
    } else {
        wl_data_device_destroy(device);
    }
}

void DestroyProxy::operator()(wl_data_device_manager* manager) const {
    wl_data_device_manager_destroy(manager);
}

void DestroyProxy::operator()(wl_data_offer* offer) const {
    wl_data_offer_destroy(offer);
}

void DestroyProxy::operator()(wl_output* output) const {
    if (wl_output_get_version(output) >= WL_OUTPUT_RELEASE_SINCE_VERSION) {
        wl_output_release(output);
    } else {
        wl_output_destroy(output);
    }
}

void DestroyProxy::operator()(wl_pointer* pointer) const {
    if (wl_pointer_get_version(pointer) >= WL_POINTER_RELEASE_SINCE_VERSION) {
        wl_pointer_release(pointer);
    } else {
        wl_pointer_destroy(pointer);
    }
}

void DestroyProxy::operator()(wl_region* region) const {
    wl_region_destroy(region);
}

void DestroyProxy::operator()(wl_registry* registry) const {
    wl_registry_destroy(registry);
}

void DestroyProxy::operator()(wl_seat* seat) const {
    wl_seat_destroy(seat);
}

void DestroyProxy::operator()(wl_shm* memory) const {
    wl_shm_destroy(memory);
}

void DestroyProxy::operator()(wl_surface* surface) const {
    wl_surface_destroy(surface);
}

void DestroyProxy::operator()(wl_touch* touch) const {
    if (wl_touch_get_version(touch) >= WL_TOUCH_RELEASE_SINCE_VERSION) {
        wl_touch_release(touch);
    } else {
        wl_touch_destroy(touch);
    }
}

void DestroyProxy::operator()(wp_fractional_scale_manager_v1* manager) const {
    wp_fractional_scale_manager_v1_destroy(manager);
}

void DestroyProxy::operator()(wp_fractional_scale_v1* scale) const {
    wp_fractional_scale_v1_destroy(scale);
}

void DestroyProxy::operator()(wp_viewport* viewport) const {
    wp_viewport_destroy(viewport);
}

void DestroyProxy::operator()(wp_viewporter* viewporter) const {
    wp_viewporter_destroy(viewporter);
}

void DestroyProxy::operator()(xdg_activation_token_v1* token) const {
    xdg_activation_token_v1_destroy(token);
}

void DestroyProxy::operator()(xdg_activation_v1* activation) const {
    xdg_activation_v1_destroy(activation);
}

void DestroyProxy::operator()(xdg_popup* popup) const {
    xdg_popup_destroy(popup);
}

void DestroyProxy::operator()(xdg_positioner* positioner) const {
    xdg_positioner_destroy(positioner);
}

void DestroyProxy::operator()(xdg_surface* surface) const {
    xdg_surface_destroy(surface);
}

void DestroyProxy::operator()(xdg_wm_base* base) const {
    xdg_wm_base_destroy(base);
}

void DestroyProxy::operator()(zwlr_foreign_toplevel_handle_v1* handle) const {
    zwlr_foreign_toplevel_handle_v1_destroy(handle);
}

void DestroyProxy::operator()(zwlr_foreign_toplevel_manager_v1* manager) const {
    // It has no destructor: the compositor lets go of it when it is stopped.
    zwlr_foreign_toplevel_manager_v1_stop(manager);
    zwlr_foreign_toplevel_manager_v1_destroy(manager);
}

void DestroyProxy::operator()(zwlr_layer_shell_v1* shell) const {
    if (zwlr_layer_shell_v1_get_version(shell) >= ZWLR_LAYER_SHELL_V1_DESTROY_SINCE_VERSION) {
        zwlr_layer_shell_v1_destroy(shell);
    } else {
        wl_proxy_destroy(reinterpret_cast<wl_proxy*>(shell));
    }
}

void DestroyProxy::operator()(zwlr_layer_surface_v1* surface) const {
    zwlr_layer_surface_v1_destroy(surface);
}

void DestroyProxy::operator()(zxdg_output_manager_v1* manager) const {
    zxdg_output_manager_v1_destroy(manager);
}

void DestroyProxy::operator()(zxdg_output_v1* output) const {
    zxdg_output_v1_destroy(output);
}

void DestroyProxy::operator()(org_kde_kwin_blur* blur) const {
    org_kde_kwin_blur_release(blur);
}

void DestroyProxy::operator()(org_kde_kwin_blur_manager* manager) const {
    org_kde_kwin_blur_manager_destroy(manager);
}

void DestroyProxy::operator()(org_kde_plasma_window* window) const {
    org_kde_plasma_window_destroy(window);
}

void DestroyProxy::operator()(org_kde_plasma_window_management* manager) const {
    // It has no destructor.
    org_kde_plasma_window_management_destroy(manager);
}

}
