/// Simulates the part of a settings daemon that announces the names of themes: the widget theme,
/// which is light or dark, and the icon theme; and whether programs should animate.
#pragma once

#include "VirtualDesktop/Screen/XClient.hpp"

#include <string_view>

namespace vireline::desktop {

/// Announces it during the lifetime of this client, to programs started from now on.
void announceWidgetTheme(const XClient& client, std::string_view name);

/// Announces in the same way that programs should not animate.
void announceNoAnimations(const XClient& client);

/// Announces it to all programs, like a newly started daemon. Returns the daemon's window;
/// destroying that ends it.
xcb_window_t announceIconTheme(const XClient& client, std::string_view name);

/// Changes the theme of a running daemon.
void changeIconTheme(const XClient& client, xcb_window_t daemon, std::string_view name);

}
