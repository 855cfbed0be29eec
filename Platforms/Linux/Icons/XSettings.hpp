/// What the desktop's settings daemon tells every program, as far as it is text: the names of the
/// icon theme and of the widget theme.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace vireline::x11 {

class X11Connection;

namespace XSettings {

using Texts = std::map<std::string, std::string, std::less<>>;

/// The settings of type text in the bytes of an _XSETTINGS_SETTINGS property, up to the first that
/// is malformed.
[[nodiscard]] Texts parse(std::string_view bytes);

/// Empty when there is no settings daemon. Two or three round trips.
[[nodiscard]] Texts read(const X11Connection& connection);

}
}
