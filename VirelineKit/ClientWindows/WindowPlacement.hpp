/// Computes where other programs' windows go, converting between global space (y upwards), in which
/// displays are described, and event space (y downwards), in which windows are moved. The first
/// screen is always the primary display.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Layout/ScreenSnapshot.hpp"
#include "Settings/Settings.hpp"

#include <cstdint>
#include <optional>
#include <ostream>
#include <span>

namespace vireline {

/// Determines how much of a display a window may fill.
struct FillContext {
    /// The edge of the display at which the dock is.
    DockPosition position = DockPosition::bottom;
    /// Whether windows leave room for the dock, that is, it does not hide.
    bool dockReserved = false;
    /// The magnification factor; 1 while magnification is off.
    double magnification = 1;
    /// In points.
    double configuredIconSize = 0;

    bool operator==(const FillContext&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const FillContext& context) {
    return out << rawValue(context.position) << " reserved=" << context.dockReserved
               << " magnification=" << context.magnification
               << " iconSize=" << context.configuredIconSize;
}

namespace WindowPlacement {

/// A window's position and size in event space.
struct Placement {
    Point position;
    Size size;

    bool operator==(const Placement&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Placement& placement) {
    return out << placement.position << ' ' << placement.size.width << " x "
               << placement.size.height;
}

/// The top-left corner, in event space, of a window centred on the frame of `target`; the origin if
/// there are no screens.
[[nodiscard]] Point centeredAXPosition(Size windowSize, const ScreenSnapshot& target,
                                       std::span<const ScreenSnapshot> screens);

/// The visible frame of `target` minus the space for a dock that does not hide and its magnified
/// icons; empty if there are no screens.
[[nodiscard]] Placement fillFrame(const ScreenSnapshot& target,
                                  std::span<const ScreenSnapshot> screens,
                                  const FillContext& context);

/// The first display that contains the centre of a window with this corner in event space; nullopt
/// if none does.
[[nodiscard]] std::optional<std::uint32_t>
displayContaining(Point axTopLeft, Size windowSize, std::span<const ScreenSnapshot> screens);

}
}
