/// What the windows of all docks share on Wayland.
#pragma once

#include "Connection/Proxies.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Foundation/NonCopyable.hpp"

namespace vireline::xdg {
class Appearance;
}

namespace vireline::wayland {

class WaylandScreens;

class LayerShellContext : private NonCopyable {
public:
    /// All must outlive this object. The compositor must offer the layer shell.
    LayerShellContext(WaylandConnection& connection, WaylandScreens& screens,
                      xdg::Appearance& appearance);
    ~LayerShellContext();

    WaylandConnection& connection;
    WaylandScreens& screens;
    xdg::Appearance& appearance;
    Proxy<wl_compositor> compositor;
    Proxy<zwlr_layer_shell_v1> shell;
    Proxy<xdg_wm_base> base;

    /// Null if the compositor does not blur what is behind windows.
    [[nodiscard]] org_kde_kwin_blur_manager* blur() const noexcept { return blur_.get(); }
    /// Calls `handler` when `blur` has changed.
    [[nodiscard]] Subscription observeBlur(std::function<void()> handler) {
        return blurObservers_.add(std::move(handler));
    }

private:
    void updateBlur();

    Proxy<org_kde_kwin_blur_manager> blur_;
    CallbackList<> blurObservers_;
    Subscription globals_;
};

}
