/// The scripts that make KWin move a window. They work with KWin 5.27 and 6.
#pragma once

#include "ClientWindows/KWinWindow.hpp"
#include "Foundation/Geometry.hpp"

#include <string>

/// In all of them the window ends up unminimised and on the current desktop.
namespace vireline::wayland::KWinScripts {

/// Moves the window's corner there. A maximised or full-screen window then fills the display at
/// that point.
[[nodiscard]] std::string move(const KWinWindow& window, Point corner);

[[nodiscard]] std::string place(const KWinWindow& window, const Rect& frame);

}
