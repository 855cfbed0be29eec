/// Reads the desktop's XSETTINGS: the names of the icon and widget themes, and whether to animate.
#pragma once

#include <xcb/xproto.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace vireline::x11 {

class X11Connection;

namespace XSettings {

using Texts = std::map<std::string, std::string, std::less<>>;
using Numbers = std::map<std::string, std::int32_t, std::less<>>;

/// The text and integer settings by name. Colours are ignored.
struct Values {
    Texts texts;
    Numbers numbers;

    bool operator==(const Values&) const = default;
};

/// Parses the bytes of an _XSETTINGS_SETTINGS property, up to the first malformed setting.
[[nodiscard]] Values parse(std::string_view bytes);

/// The name of the selection that the settings daemon owns.
[[nodiscard]] std::string selection(const X11Connection& connection);

/// The settings daemon's window, which has the settings as a property; XCB_NONE without a daemon.
[[nodiscard]] xcb_window_t owner(const X11Connection& connection);

/// Empty without a settings daemon. Two or three round trips.
[[nodiscard]] Values read(const X11Connection& connection);

}
}
