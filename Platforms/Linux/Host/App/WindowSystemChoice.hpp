/// The rule that decides under which window system the program runs.
#pragma once

#include <cstdint>
#include <string>

namespace vireline {

/// What is known of the session before Qt starts.
struct SessionFacts {
    /// Whether a Wayland compositor accepts connections.
    bool hasCompositor = false;
    /// Whether Qt's plugin for Wayland is installed.
    bool hasWaylandPlugin = false;
    /// Whether programs can put surfaces at the edges of displays.
    bool hasLayerShell = false;
    /// Whether programs are told of other programs' windows.
    bool listsWindows = false;
    /// Whether the compositor is KWin, which lists windows only for programs that it permits to.
    bool isKWin = false;
    /// Whether there may be an X server, under Wayland usually Xwayland.
    bool hasXServer = false;
};

struct WindowSystemChoice {
    enum class Kind : std::uint8_t { x11, wayland };

    Kind kind = Kind::x11;
    /// A line for the log if the session deserves a better choice; empty otherwise.
    std::string remark;

    bool operator==(const WindowSystemChoice&) const = default;

    [[nodiscard]] static WindowSystemChoice of(const SessionFacts& facts);
};

}
