/// Monitors of an X server with real outputs, each with its own CRTC and modes, attached as
/// desktops' settings do it.
#pragma once

#include "VirtualDesktop/Screen/Monitors.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

#include <string>
#include <vector>

namespace vireline::desktop {

/// The name of the server's output with this index, and of its monitor.
[[nodiscard]] std::string outputName(int index);

/// Enables exactly these monitors' outputs, the first of them primary. The X screen grows to
/// contain them and never shrinks.
void setOutputs(const XClient& client, const std::vector<Monitor>& monitors);

}
