/// What the desktop's settings daemon tells every program: the names of the icon theme and of the
/// widget theme, whether to animate.
#pragma once

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

/// Empty when there is no settings daemon. Two or three round trips.
[[nodiscard]] Values read(const X11Connection& connection);

}
}
