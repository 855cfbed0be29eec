/// The commands for sway that move, hide and show windows.
#pragma once

#include "Compositors/Sway/SwayTree.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vireline::wayland::SwayCommands {

[[nodiscard]] std::string focus(std::int64_t window);
[[nodiscard]] std::string close(std::int64_t window);

/// Moves the window to the scratchpad, the only place where sway hides windows.
[[nodiscard]] std::string hide(std::int64_t window);

/// Takes the window out of the scratchpad, without giving it the focus, and puts it where it was
/// before: `before` is how it was then.
[[nodiscard]] std::string bringBack(const SwayWindow& before);

/// Puts the window's corner there. A tiled window stays tiled and only goes to the output there.
/// nullopt if nothing has to be done.
[[nodiscard]] std::optional<std::string> move(const SwayWindow& window, Point corner,
                                              const SwayTree& tree);

/// Gives the window that frame. A tiled window becomes a floating one, since sway decides about the
/// size of tiled ones, unless it has that frame already. nullopt if nothing has to be done.
[[nodiscard]] std::optional<std::string> place(const SwayWindow& window, const Rect& frame,
                                               const SwayTree& tree);

}
