/// What the docks' windows are called on every platform.
#pragma once

#include <cstdint>
#include <string>

namespace vireline {

/// Distinguishes the docks in lists of windows.
[[nodiscard]] inline std::string panelTitle(std::uint32_t displayID) {
    return "Vireline dock #" + std::to_string(displayID);
}

/// For assistive technology, to which a display's name says more than its number.
[[nodiscard]] inline std::string accessiblePanelTitle(const std::string& displayName) {
    return "Vireline dock on " + displayName;
}

}
