/// The expected state of one dock.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Settings/Settings.hpp"

#include <cmath>
#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace vireline::storm {

/// Integer nanoseconds since the program's first start, so that tenths add up exactly.
using Time = std::int64_t;

[[nodiscard]] inline Time nanoseconds(double seconds) {
    return std::llround(seconds * 1e9);
}

/// Distinguishes a dock from earlier ones on the same display.
struct DockID {
    std::uint32_t display = 0;
    int incarnation = 0;

    bool operator==(const DockID&) const = default;
};

/// The n-th tile, counted from 0, of the app with this identifier.
struct TileKey {
    std::string id;
    int occurrence = 0;

    auto operator<=>(const TileKey&) const = default;
};

/// The button is pressed on a tile, which may have been removed since.
struct ModelPress {
    TileKey tile;
    Point at;
    bool isDragging = false;
};

struct ModelDock {
    DockID id;
    Rect frame;
    double available = 0;
    DockPosition position = DockPosition::bottom;

    bool hides = false;
    bool isIn = false;
    bool hasPointer = false;
    bool hasFiles = false;
    int menus = 0;
    std::optional<ModelPress> press = {};
    /// The button is pressed anywhere; the dock polls whether it still is.
    bool isButtonDown = false;
    std::optional<Time> hidesAt = {};

    /// The pointer's place along the axis while it magnifies the strip.
    std::optional<double> cursor = {};
    /// False for a hidden dock that was interrupted, until it shows the pointer again.
    bool isCursorKnown = true;

    /// The utility tiles at the time of the last layout.
    bool hasDownloads = false;
    bool hasTrash = false;
    bool tilesAreStale = true;
    /// When each tile was last single-clicked.
    std::map<TileKey, double> taps = {};

    [[nodiscard]] bool isHeld() const {
        return hasPointer || hasFiles || menus > 0 || (press && press->isDragging);
    }
};

}
