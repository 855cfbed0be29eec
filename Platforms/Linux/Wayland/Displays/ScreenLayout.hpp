/// The rule that turns the compositor's displays into the kit's: which is the primary one, IDs, and
/// the conversion between both coordinate systems.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Platform/Desktop/Screens.hpp"

#include <QRect>
#include <QRectF>
#include <QSize>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vireline::wayland {

/// Space that panels reserve at the edges of a display, in points.
struct Insets {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const Insets&) const = default;
};

/// A display as the compositor describes it.
struct OutputState {
    std::string name;
    /// Logical pixels, y downwards.
    QRect geometry;
    double scale = 1;
    Insets reserved;

    bool operator==(const OutputState&) const = default;
};

namespace ScreenLayout {

/// Derived from the name of the connector, such as "HDMI-A-1": Wayland has no numbers for displays
/// that last.
[[nodiscard]] std::uint32_t displayID(const std::string& name);

/// What panels reserve, from the size of what they leave free. `seen` has the distances between a
/// display's edges and its workspace, which may be larger by a gap that is the same on both sides.
[[nodiscard]] Insets withoutGaps(QSize whole, QSize free, const Insets& seen);

/// The primary display first. Wayland has none, so it is the one at the origin of the layout, or
/// the one nearest to that.
[[nodiscard]] std::vector<OutputState> inOrder(std::vector<OutputState> outputs);

/// The kit's view of displays that are in order.
[[nodiscard]] std::vector<PlatformScreen> screens(const std::vector<OutputState>& outputs);

/// Converts from the kit's global coordinates to the compositor's.
[[nodiscard]] QRectF toLayout(const Rect& global, const QRect& primary);

}
}
