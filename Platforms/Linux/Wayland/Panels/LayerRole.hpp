/// Makes the surface of a window of Qt's a layer surface: above other windows, without the
/// keyboard, at a fixed place on a display. Destroyed before its surface.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QRect>
#include <functional>

class QScreen;
class QWindow;

namespace vireline::wayland {

class LayerShellContext;

class LayerRole : private NonCopyable {
public:
    struct Events {
        /// The compositor is ready for the surface's content. Called at least once.
        std::function<void()> configured;
        /// The surface is no longer shown, because its display is gone. May not destroy the role.
        std::function<void()> closed;
    };

    /// Prepares a new window for a role that Qt does not give it, and for translucent pixels.
    static void prepare(QWindow& window);

    /// Makes the window's surface on that screen. Nothing may be painted before the compositor has
    /// configured the role. The context must outlive this object.
    LayerRole(const LayerShellContext& context, QWindow& window, QScreen& screen,
              const QRect& place, Events events);

    /// Relative to the display's top-left corner, whatever other panels reserve. Takes effect when
    /// the surface is next committed.
    void setPlace(const QRect& place);
    [[nodiscard]] const QRect& place() const noexcept { return place_; }

    /// Whether the surface gets the keyboard instead of windows. Takes effect at once.
    void takeKeyboard(bool takes);

    /// Makes a popup a child of the surface.
    void adopt(xdg_popup& popup) const;

private:
    struct Listener;

    const LayerShellContext& context_;
    Events events_;
    wl_surface* surface_;
    QRect place_;
    Proxy<zwlr_layer_surface_v1> role_;
};

}
