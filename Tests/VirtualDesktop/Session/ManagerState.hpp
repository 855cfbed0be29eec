/// Whether a window manager is at work, or gone.
#pragma once

#include "VirtualDesktop/Processes/ChildProcess.hpp"
#include "VirtualDesktop/Screen/XClient.hpp"

namespace vireline::desktop {

/// The window manager's check window; XCB_NONE without a window manager.
[[nodiscard]] xcb_window_t managerWindow(const XClient& client);

/// Window managers announce themselves before they select events, and miss windows in between:
/// shows a window until it is managed.
[[nodiscard]] bool managesWindows(const XClient& client);

/// Waits for a window manager that has left the screen to exit, and kills it otherwise: Openbox can
/// deadlock in libX11 while it closes its display.
void awaitEnd(ChildProcess& manager);

}
