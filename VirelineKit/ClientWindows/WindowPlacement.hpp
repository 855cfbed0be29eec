/// Where other programs' windows go: arithmetic between global space (y upwards), in which displays
/// are described, and event space (y downwards), in which windows are moved. The first of the
/// screens is the primary display.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Layout/ScreenSnapshot.hpp"
#include "Settings/Settings.hpp"

#include <cstdint>
#include <optional>
#include <ostream>
#include <span>

namespace vireline {

/// What decides how much of a display a window may fill.
struct FillContext {
    /// The edge of the display that holds the dock.
    DockPosition position = DockPosition::bottom;
    /// Whether the dock keeps its strip for itself all the time, that is, does not hide.
    bool dockReserved = false;
    /// The factor in force; 1 while magnification is off.
    double magnification = 1;
    /// Points.
    double configuredIconSize = 0;

    bool operator==(const FillContext&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const FillContext& context) {
    return out << rawValue(context.position) << " reserved=" << context.dockReserved
               << " magnification=" << context.magnification
               << " iconSize=" << context.configuredIconSize;
}

namespace WindowPlacement {

/// A window's place in event space.
struct Placement {
    Point position;
    Size size;

    bool operator==(const Placement&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Placement& placement) {
    return out << placement.position << ' ' << placement.size.width << " x "
               << placement.size.height;
}

/// The top-left corner, in event space, of a window centred on the whole of `target`; the origin
/// when there are no screens.
[[nodiscard]] Point centeredAXPosition(Size windowSize, const ScreenSnapshot& target,
                                       std::span<const ScreenSnapshot> screens);

/// The visible frame of `target` less the room that a reserved dock and its magnified icons take;
/// nothing at all when there are no screens.
[[nodiscard]] Placement fillFrame(const ScreenSnapshot& target,
                                  std::span<const ScreenSnapshot> screens,
                                  const FillContext& context);

/// The first display that holds the centre of a window with this corner in event space.
[[nodiscard]] std::optional<std::uint32_t>
displayContaining(Point axTopLeft, Size windowSize, std::span<const ScreenSnapshot> screens);

}
}
