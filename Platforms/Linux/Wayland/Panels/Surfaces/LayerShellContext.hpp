/// What the program's menus need of Qt's connection.
#pragma once

#include "Connection/Proxies.hpp"
#include "Connection/WaylandConnection.hpp"
#include "Foundation/NonCopyable.hpp"

namespace vireline::wayland {

class LayerShellContext : private NonCopyable {
public:
    /// The connection must outlive this object. The compositor must offer the layer shell.
    explicit LayerShellContext(WaylandConnection& connection);

    WaylandConnection& connection;
    Proxy<zwlr_layer_shell_v1> shell;
    Proxy<xdg_wm_base> base;
};

}
