/// What the windows of all docks share on Wayland.
#pragma once

#include "Connection/OwnConnection.hpp"
#include "Connection/Proxies.hpp"
#include "Displays/Outputs.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Panels/Surfaces/LayerShellContext.hpp"

#include <functional>

namespace vireline::xdg {
class Appearance;
}

namespace vireline::wayland {

class Seat;
class WaylandScreens;

class DockContext : private NonCopyable {
public:
    struct Needs {
        /// Qt's connection, for the docks' menus.
        WaylandConnection& qt;
        /// Our own connection, for everything else.
        OwnConnection& own;
        /// The input devices on our own connection.
        Seat& seat;
        WaylandScreens& screens;
        xdg::Appearance& appearance;
    };

    /// All must outlive this object. The compositor must offer the layer shell.
    explicit DockContext(const Needs& needs);
    ~DockContext();

    WaylandConnection& connection;
    Seat& seat;
    WaylandScreens& screens;
    xdg::Appearance& appearance;
    LayerShellContext menus;
    Outputs outputs;
    Proxy<wl_compositor> compositor;
    Proxy<wl_shm> memory;
    Proxy<zwlr_layer_shell_v1> shell;
    /// Either both are set or neither.
    Proxy<wp_viewporter> viewporter;
    Proxy<wp_fractional_scale_manager_v1> fractionalScales;

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
