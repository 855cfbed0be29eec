/// What panels reserve at the edges of one display. No protocol reports that, so it is inferred
/// from invisible surfaces of our own: the compositor tells one without content how large the free
/// area is, and `EdgeProbe` finds out at which edges something is reserved.
#pragma once

#include "Connection/Proxies.hpp"
#include "Displays/ScreenLayout.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QSize>
#include <functional>
#include <memory>

class QScreen;
struct wl_output;

namespace vireline::wayland {

class EdgeProbe;
class WaylandConnection;

class ReservedSpace : private NonCopyable {
public:
    /// The connection must outlive this object, and so must the display's protocol object.
    ReservedSpace(const WaylandConnection& connection, wl_output* output);
    ~ReservedSpace();

    std::function<void()> onChange;

    /// `whole` is the display's size. Nothing is reserved until the compositor has answered. What
    /// is reserved on opposite edges together counts as that of the bottom or the left one, if
    /// anything is reserved there.
    [[nodiscard]] Insets insets(QSize whole) const;

    /// The size of what panels leave free; empty until the compositor has answered.
    [[nodiscard]] QSize free() const noexcept { return free_; }

private:
    struct Events;

    void measured(QSize free);

    const WaylandConnection& connection_;
    wl_output* output_;
    Proxy<zwlr_layer_shell_v1> shell_;
    Proxy<wl_compositor> compositor_;
    Proxy<wl_surface> surface_;
    Proxy<zwlr_layer_surface_v1> role_;
    QSize free_;
    std::unique_ptr<EdgeProbe> bottom_;
    std::unique_ptr<EdgeProbe> left_;
    std::unique_ptr<EdgeProbe> right_;
};

}
