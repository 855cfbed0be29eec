/// How an app's windows are listed in the menu of its tile.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vireline::WindowTitles {

/// The menu itself lists this many windows; the others are in a submenu.
inline constexpr std::size_t listedWindows = 10;
/// Further windows are not listed at all: the number of windows is up to the app.
inline constexpr std::size_t maximumWindows = 100;
/// A longer title is shortened.
inline constexpr std::size_t maximumCharacters = 48;

/// The title of a window's entry, in one line: the window's own, shortened in the middle, or the
/// app's name if it has none. Both are UTF-8; control characters become spaces.
[[nodiscard]] std::string menuTitle(std::string_view title, std::string_view appName);

}
