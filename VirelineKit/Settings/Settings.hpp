/// The user's settings.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vireline {

/// Where the pinned list comes from.
enum class SourceMode {
    mirror, ///< from the desktop's own dock
    manual, ///< from `Settings::manualApps`
};

/// The edge of each display at which the dock is.
enum class DockPosition { bottom, left, right };

struct DockPositionTraits {
    DockPosition position;
    /// The text that stands for it in the preferences file.
    std::string_view name;
    /// The same for the user.
    std::string_view title;
    /// Whether a dock there runs along x.
    bool isHorizontal;
    /// Whether its coordinate across that axis is the display's greater one in global space.
    bool isTopOrRight;
};

/// Every position, in the order in which they are offered.
inline constexpr std::array dockPositions{
    DockPositionTraits{DockPosition::bottom, "bottom", "Bottom", true, false},
    DockPositionTraits{DockPosition::left, "left", "Left", false, false},
    DockPositionTraits{DockPosition::right, "right", "Right", false, true},
};

static_assert(
    [] {
        for (std::size_t i = 0; i < dockPositions.size(); ++i) {
            if (static_cast<std::size_t>(dockPositions[i].position) != i)
                return false;
        }
        return true;
    }(),
    "positions are looked up by their number");

[[nodiscard]] constexpr const DockPositionTraits& traitsOf(DockPosition position) noexcept {
    return dockPositions[static_cast<std::size_t>(position)];
}

/// The value's text in the preferences file.
[[nodiscard]] std::string_view rawValue(SourceMode mode) noexcept;
[[nodiscard]] std::string_view rawValue(DockPosition position) noexcept;

/// The value for a text, which is case-sensitive; nullopt for an unknown text.
[[nodiscard]] std::optional<SourceMode> sourceMode(std::string_view rawValue) noexcept;
[[nodiscard]] std::optional<DockPosition> dockPosition(std::string_view rawValue) noexcept;

/// One entry of the manual list.
struct StoredApp {
    std::string bundleID;
    std::string name;
    /// The file-system path of the application bundle.
    std::string path;

    bool operator==(const StoredApp&) const = default;
};

struct Settings {
    std::int64_t schemaVersion = 1;
    SourceMode sourceMode = SourceMode::mirror;
    std::vector<StoredApp> manualApps;
    /// Points.
    double iconSize = 44;
    /// Kept for a later version; nothing consults it yet.
    bool hideOverFullScreen = true;
    DockPosition position = DockPosition::bottom;
    bool autoHide = false;
    bool magnificationEnabled = false;
    /// The factor used while magnification is enabled.
    double magnification = 1.5;
    bool anchorAppleDock = false;
    bool openOnThisDisplay = false;
    bool summonOnClick = false;
    bool fillOnDoubleClick = false;
    bool onboardingCompleted = false;

    bool operator==(const Settings&) const = default;
};

/// The limit of the factor, far above what the settings window offers. The file may contain any
/// number, and a dock's window must have room for the growth.
inline constexpr double largestMagnification = 16;

/// The factor to use: 1 while magnification is off.
[[nodiscard]] inline double effectiveMagnification(const Settings& settings) noexcept {
    return settings.magnificationEnabled ? std::min(settings.magnification, largestMagnification)
                                         : 1.0;
}

}
