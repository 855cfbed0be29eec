/// What the pointer did over a view, as every platform reports it.
#pragma once

#include "Foundation/Geometry.hpp"

#include <optional>
#include <ostream>

namespace vireline {

struct PointerEvent {
    enum class Kind {
        moved,            ///< also while the primary button is held
        exited,           ///< no longer over the view; the position is meaningless
        pressed,          ///< primary button
        released,         ///< primary button
        secondaryPressed, ///< the button, or the combination, that asks for a menu
        middlePressed,    ///< the button that opens another window
        cancelled,        ///< the current press was cancelled
    };

    Kind kind = Kind::moved;
    /// The view's coordinates: points, origin top-left, y downwards.
    Point position;
    /// When it happened, on the run loop's clock; the event may be delivered much later. nullopt if
    /// unknown.
    std::optional<double> time = std::nullopt;

    bool operator==(const PointerEvent&) const = default;
};

}
