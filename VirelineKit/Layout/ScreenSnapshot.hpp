/// An immutable snapshot of one display, so that geometry never works on live objects.
#pragma once

#include "Foundation/Geometry.hpp"

#include <cstdint>
#include <optional>
#include <ostream>
#include <vector>

namespace vireline {

struct PlatformScreen;
class Screens;

/// Rectangles are in global space: points, origin at the primary display's bottom-left corner,
/// y upwards. The first snapshot of every list is the primary display.
struct ScreenSnapshot {
    /// The display ID, by which panels, clicks and guard zones refer to displays.
    std::uint32_t id = 0;
    /// Kept for a later version; nothing consults it yet.
    std::uint32_t unitNumber = 0;
    Rect frame;
    Rect visibleFrame;
    /// Pixels per point. Kept for a later version; nothing consults it yet.
    double backingScaleFactor = 1;

    /// nullopt for a screen without a display ID.
    [[nodiscard]] static std::optional<ScreenSnapshot> of(const PlatformScreen& screen);

    /// All screens that have a display ID, in the platform's order.
    [[nodiscard]] static std::vector<ScreenSnapshot> current(const Screens& screens);

    bool operator==(const ScreenSnapshot&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const ScreenSnapshot& screen) {
    return out << '#' << screen.id << ' ' << screen.frame;
}

}
