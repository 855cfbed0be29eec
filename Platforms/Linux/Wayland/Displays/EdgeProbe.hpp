/// A transparent pixel that would lie one pixel beyond an edge of a display, but is moved onto the
/// display when something is reserved at that edge. It takes no input.
#pragma once

#include "Connection/Proxies.hpp"
#include "Connection/SharedImage.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Settings/Settings.hpp"

#include <functional>
#include <memory>

struct wl_output;

namespace vireline::wayland {

class WaylandConnection;

class EdgeProbe : private NonCopyable {
public:
    /// `onChange` is called when the answer of `isReserved` changes.
    EdgeProbe(const WaylandConnection& connection, wl_output* output, DockPosition edge,
              std::function<void()> onChange);
    ~EdgeProbe();

    [[nodiscard]] bool isReserved() const noexcept { return isReserved_; }

private:
    struct Events;

    void setReserved(bool isReserved);

    wl_output* output_;
    std::function<void()> onChange_;
    Proxy<wl_compositor> compositor_;
    Proxy<zwlr_layer_shell_v1> shell_;
    Proxy<wl_surface> surface_;
    Proxy<zwlr_layer_surface_v1> role_;
    std::unique_ptr<SharedImage> pixel_;
    bool isReserved_ = false;
};

}
