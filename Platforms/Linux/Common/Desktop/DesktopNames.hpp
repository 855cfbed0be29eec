/// The running desktop's names in XDG_CURRENT_DESKTOP, the most specific first.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vireline::xdg::DesktopNames {

/// Splits at colons; empty names are ignored.
[[nodiscard]] std::vector<std::string> parse(std::string_view currentDesktop);

/// From the environment.
[[nodiscard]] std::vector<std::string> current();

}
