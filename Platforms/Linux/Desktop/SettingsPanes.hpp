/// Which program of a desktop shows a pane of the system's settings.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::x11::SettingsPanes {

/// The desktop entries, by their IDs, that could show the pane on a desktop of these names, the
/// best first; none for a pane that no desktop here has.
[[nodiscard]] std::vector<std::string_view> entries(std::string_view paneURL,
                                                    std::span<const std::string> desktopNames);

}
