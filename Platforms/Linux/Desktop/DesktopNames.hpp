/// What the running desktop calls itself: the names in XDG_CURRENT_DESKTOP, the most particular
/// first.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11::DesktopNames {

/// The names between colons; empty ones are passed over.
[[nodiscard]] std::vector<std::string> parse(std::string_view currentDesktop);

/// From the environment.
[[nodiscard]] std::vector<std::string> current();

}
