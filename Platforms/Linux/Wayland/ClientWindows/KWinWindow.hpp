/// A window's identifier in KWin's own interfaces, and its geometry.
#pragma once

#include "Foundation/Geometry.hpp"

#include <string>

namespace vireline::wayland {

struct KWinWindow {
    std::string uuid;
    /// With its decoration, as KWin last reported it. In logical pixels, y downwards.
    Rect frame;
    bool isMaximised = false;
    bool isFullScreen = false;

    bool operator==(const KWinWindow&) const = default;
};

}
