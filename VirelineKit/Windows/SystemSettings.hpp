/// Panes of the system's settings that the program's windows lead to.
#pragma once

namespace vireline::SystemSettings {

/// The list of programs that may use Accessibility.
inline constexpr const char* accessibilityPane =
    "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility";

}
