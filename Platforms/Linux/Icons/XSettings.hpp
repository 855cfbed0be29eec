/// What the desktop's settings daemon tells every program: the names of the icon theme and of the
/// widget theme, whether to animate.
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

/// The settings of both types, by name. Colours are passed over.
struct Values {
    Texts texts;
    Numbers numbers;

    bool operator==(const Values&) const = default;
};

/// What the bytes of an _XSETTINGS_SETTINGS property say, up to the first setting that is
/// malformed.
[[nodiscard]] Values parse(std::string_view bytes);

/// The selection that the settings daemon owns, by its atom's name.
[[nodiscard]] std::string selection(const X11Connection& connection);

/// The daemon's window, which carries the settings; XCB_NONE when there is no daemon.
[[nodiscard]] xcb_window_t owner(const X11Connection& connection);

/// Empty when there is no settings daemon. Two or three round trips.
[[nodiscard]] Values read(const X11Connection& connection);

}
}
