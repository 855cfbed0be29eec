/// The Wayland session before Qt has connected to it.
#pragma once

#include "Foundation/NonCopyable.hpp"

#include <optional>

struct wl_display;

namespace vireline::wayland {

/// What matters for docks of what a compositor offers.
struct CompositorOffer {
    bool hasLayerShell = false;
    bool listsWindows = false;
    bool isKWin = false;

    bool operator==(const CompositorOffer&) const = default;

    /// Asks the compositor at the other end.
    [[nodiscard]] static CompositorOffer of(wl_display* display);
};

class WaylandSession : private NonCopyable {
public:
    /// Prepares the environment for Qt's plugin, which looks at it whenever it shows a window. Must
    /// come before the application object. Launched apps do not get these variables. From now on,
    /// the end of the connection is logged.
    WaylandSession();

    /// nullopt if no compositor accepts connections.
    [[nodiscard]] static std::optional<CompositorOffer> offer();

    /// Whether Qt's plugin is installed; Qt aborts the process if it has to do without.
    [[nodiscard]] static bool hasPlugin();
};

}
