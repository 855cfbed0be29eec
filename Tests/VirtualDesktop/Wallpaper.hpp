/// A picture behind all windows.
#pragma once

#include "VirtualDesktop/Monitors.hpp"
#include "VirtualDesktop/XClient.hpp"

#include <vector>

namespace vireline::desktop {

/// Paints a slope of colours on each monitor; what belongs to none stays black. It lasts as long as
/// `client` is connected.
void paintWallpaper(const XClient& client, const std::vector<Monitor>& monitors);

}
