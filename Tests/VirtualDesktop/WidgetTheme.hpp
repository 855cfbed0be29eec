/// The part of a desktop's settings daemon that tells programs the names of its themes: that of the
/// widgets, by which they are light or dark, and that of the icons.
#pragma once

#include "VirtualDesktop/XClient.hpp"

#include <string_view>

namespace vireline::desktop {

/// Announces it for as long as this client lives, to programs that start from now on.
void announceWidgetTheme(const XClient& client, std::string_view name);

/// Announces it to all programs, as a daemon that has just started. The daemon's window, by which
/// it ends.
xcb_window_t announceIconTheme(const XClient& client, std::string_view name);

/// Another choice of the same daemon.
void changeIconTheme(const XClient& client, xcb_window_t daemon, std::string_view name);

}
