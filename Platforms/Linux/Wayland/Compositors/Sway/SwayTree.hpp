/// What sway's tree says about windows and outputs.
#pragma once

#include "Foundation/Geometry.hpp"

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vireline::wayland {

/// Rectangles are in the compositor's coordinates: logical pixels, y downwards.
struct SwayWindow {
    std::int64_t id = 0;
    /// Sanitised; empty for windows under Xwayland and those that do not say.
    std::string appID;
    /// WM_CLASS of a window under Xwayland, sanitised.
    std::string className;
    std::string instance;
    std::string title;
    /// 0 if unknown.
    std::int32_t processIdentifier = 0;
    /// With the title bar and borders that sway draws.
    Rect frame;
    /// Empty while the window is in the scratchpad.
    std::string workspace;
    bool isFloating = false;
    bool isFocused = false;
    bool isUrgent = false;
    /// Whether its workspace is shown, and it is not behind another tab.
    bool isVisible = false;
    bool isInScratchpad = false;
    /// Subordinate to another window; known only under Xwayland.
    bool isTransient = false;

    bool operator==(const SwayWindow&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const SwayWindow& window) {
    return out << window.id << ' ' << window.appID << ' ' << window.frame << " on \""
               << window.workspace << (window.isFloating ? "\", floating" : "\", tiled");
}

struct SwayOutput {
    std::string name;
    Rect frame;
    /// The workspace that the output shows.
    std::string workspace;

    bool operator==(const SwayOutput&) const = default;
};

struct SwayTree {
    /// In the order in which they last had the focus, the most recent first.
    std::vector<SwayWindow> windows;
    std::vector<SwayOutput> outputs;

    /// Null if there is no such window.
    [[nodiscard]] const SwayWindow* window(std::int64_t id) const;
    /// The output at this point, otherwise the nearest one; null without outputs.
    [[nodiscard]] const SwayOutput* outputAt(Point point) const;

    /// nullopt for a text that is not a tree.
    [[nodiscard]] static std::optional<SwayTree> parse(std::string_view json);
};

}
