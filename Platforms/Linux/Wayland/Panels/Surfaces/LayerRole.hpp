/// Makes a surface a layer surface: above other windows, without the keyboard, at a fixed place on
/// a display. Destroyed before its surface.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QRect>
#include <functional>

namespace vireline::wayland {

class WaylandConnection;

class LayerRole : private NonCopyable {
public:
    struct Events {
        /// The compositor is ready for the surface's content. Called at least once.
        std::function<void()> configured;
        /// The surface is no longer shown, because its display is gone. May not destroy the role.
        std::function<void()> closed;
    };

    /// Nothing may be shown on the surface before the compositor has configured the role. The
    /// connection must outlive this object.
    LayerRole(const WaylandConnection& connection, zwlr_layer_shell_v1& shell, wl_surface& surface,
              wl_output* output, const QRect& place, Events events);

    /// Relative to the display's top-left corner, whatever other panels reserve. Takes effect when
    /// the surface is next committed.
    void setPlace(const QRect& place);
    [[nodiscard]] const QRect& place() const noexcept { return place_; }

    /// Gives the surface the keyboard instead of windows, until it is destroyed. Takes effect at
    /// once.
    void takeKeyboard();

    /// Makes a popup a child of the surface.
    void adopt(xdg_popup& popup) const;

private:
    struct Listener;

    const WaylandConnection& connection_;
    Events events_;
    wl_surface& surface_;
    QRect place_;
    Proxy<zwlr_layer_surface_v1> role_;
};

}
