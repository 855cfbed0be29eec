/// Reads the desktop's XSETTINGS from the settings daemon's window: the names of the icon and
/// widget themes, and whether to animate.
#pragma once

#include "Desktop/SettingsDaemon.hpp"

#include <xcb/xproto.h>

#include <string>
#include <string_view>

namespace vireline::x11 {

class X11Connection;

namespace XSettings {

/// Parses the text and integer settings in the bytes of an _XSETTINGS_SETTINGS property, up to the
/// first malformed setting. Colours are ignored.
[[nodiscard]] xdg::DesktopSettings parse(std::string_view bytes);

/// The name of the selection that the settings daemon owns.
[[nodiscard]] std::string selection(const X11Connection& connection);

/// The settings daemon's window, which has the settings as a property; XCB_NONE without a daemon.
[[nodiscard]] xcb_window_t owner(const X11Connection& connection);

/// Empty without a settings daemon. Two or three round trips.
[[nodiscard]] xdg::DesktopSettings read(const X11Connection& connection);

}
}
