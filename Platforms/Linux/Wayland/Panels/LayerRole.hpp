/// Makes a surface a layer surface: above windows, without the keyboard, at a fixed place on a
/// display. Destroyed before its surface.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QRect>
#include <functional>

struct wl_output;

namespace vireline::wayland {

class LayerRole : private NonCopyable {
public:
    struct Events {
        /// The compositor is ready for the surface's content. Called at least once.
        std::function<void()> configured;
        /// The surface is no longer shown, because its display is gone. May not destroy the role.
        std::function<void()> closed;
    };

    LayerRole(zwlr_layer_shell_v1& shell, wl_surface& surface, wl_output* output, Events events);

    /// Relative to the display's top-left corner, whatever other panels reserve. This and the
    /// following take effect when the surface is next committed.
    void setPlace(const QRect& place);
    [[nodiscard]] const QRect& place() const noexcept { return place_; }

    /// Whether the surface gets the keyboard instead of windows.
    void setTakesKeyboard(bool takesKeyboard);

    /// Makes a popup a child of the surface.
    void adopt(xdg_popup& popup) const;

private:
    struct Listener;

    Events events_;
    QRect place_;
    Proxy<zwlr_layer_surface_v1> role_;
};

}
