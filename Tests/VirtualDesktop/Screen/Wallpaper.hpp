/// A picture behind all windows.
#pragma once

#include "VirtualDesktop/Screen/Monitors.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <vector>

namespace vireline::desktop {

/// Paints a gradient on each monitor; the rest of the screen stays black. It remains as long as
/// `client` is connected.
void paintWallpaper(const XClient& client, const std::vector<Monitor>& monitors);

}
