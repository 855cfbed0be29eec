/// Owning handles of protocol objects. Destroying one sends the protocol's destructor, if the bound
/// version has one. A role (`zwlr_layer_surface_v1`, `xdg_popup`) must go before its surface.
#pragma once

#include <memory>

struct wl_buffer;
struct wl_compositor;
struct wl_data_device;
struct wl_data_device_manager;
struct wl_data_offer;
struct wl_callback;
struct wl_display;
struct wl_output;
struct wl_pointer;
struct wl_region;
struct wl_registry;
struct wl_seat;
struct wl_shm;
struct wl_surface;
struct wl_touch;
struct wp_fractional_scale_manager_v1;
struct wp_fractional_scale_v1;
struct wp_viewport;
struct wp_viewporter;
struct xdg_activation_token_v1;
struct xdg_activation_v1;
struct xdg_popup;
struct xdg_positioner;
struct xdg_surface;
struct xdg_wm_base;
struct zwlr_foreign_toplevel_handle_v1;
struct zwlr_foreign_toplevel_manager_v1;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;
struct zxdg_output_manager_v1;
struct zxdg_output_v1;
struct org_kde_kwin_blur;
struct org_kde_kwin_blur_manager;
struct org_kde_plasma_window;
struct org_kde_plasma_window_management;

namespace vireline::wayland {

struct DestroyProxy {
    /// Closes a connection of our own.
    void operator()(wl_display* display) const;
    void operator()(wl_buffer* buffer) const;
    void operator()(wl_callback* callback) const;
    void operator()(wl_compositor* compositor) const;
    void operator()(wl_data_device* device) const;
    void operator()(wl_data_device_manager* manager) const;
    void operator()(wl_data_offer* offer) const;
    void operator()(wl_output* output) const;
    void operator()(wl_pointer* pointer) const;
    void operator()(wl_region* region) const;
    void operator()(wl_registry* registry) const;
    void operator()(wl_seat* seat) const;
    void operator()(wl_shm* memory) const;
    void operator()(wl_surface* surface) const;
    void operator()(wl_touch* touch) const;
    void operator()(wp_fractional_scale_manager_v1* manager) const;
    void operator()(wp_fractional_scale_v1* scale) const;
    void operator()(wp_viewport* viewport) const;
    void operator()(wp_viewporter* viewporter) const;
    void operator()(xdg_activation_token_v1* token) const;
    void operator()(xdg_activation_v1* activation) const;
    void operator()(xdg_popup* popup) const;
    void operator()(xdg_positioner* positioner) const;
    void operator()(xdg_surface* surface) const;
    void operator()(xdg_wm_base* base) const;
    void operator()(zwlr_foreign_toplevel_handle_v1* handle) const;
    void operator()(zwlr_foreign_toplevel_manager_v1* manager) const;
    void operator()(zwlr_layer_shell_v1* shell) const;
    void operator()(zwlr_layer_surface_v1* surface) const;
    void operator()(zxdg_output_manager_v1* manager) const;
    void operator()(zxdg_output_v1* output) const;
    void operator()(org_kde_kwin_blur* blur) const;
    void operator()(org_kde_kwin_blur_manager* manager) const;
    void operator()(org_kde_plasma_window* window) const;
    void operator()(org_kde_plasma_window_management* manager) const;
};

template <class Object>
using Proxy = std::unique_ptr<Object, DestroyProxy>;

}
