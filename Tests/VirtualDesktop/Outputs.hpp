/// Monitors of an X server that has real outputs, each with a controller and modes of its own:
/// attached the way that desktops' settings do it.
#pragma once

#include "VirtualDesktop/Monitors.hpp"
#include "VirtualDesktop/XClient.hpp"

#include <string>
#include <vector>

namespace vireline::desktop {

/// The name of the server's output with this index, which names the monitor on it as well.
[[nodiscard]] std::string outputName(int index);

/// Switches exactly these monitors' outputs on, the first of them primary. The X screen grows to
/// hold them and never shrinks.
void setOutputs(const XClient& client, const std::vector<Monitor>& monitors);

}
