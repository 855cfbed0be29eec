/// Aligns a scene's nodes with the pixels of a display. Rectangles are in the view's coordinates:
/// points, origin top-left, y downwards. A scale is in pixels per point.
#pragma once

#include "Presentation/Scene.hpp"

namespace vireline::macos::ScenePlacement {

/// Rounds each edge to the nearest pixel. The result is never empty.
[[nodiscard]] Rect snapped(const Rect& rect, double scale);

/// Rounds the size, then the position, so that equal sizes stay equal at any position. The result
/// is never empty.
[[nodiscard]] Rect snappedAsWhole(const Rect& rect, double scale);

/// Where a node is drawn, including its scale and offset. Labels and icons that are not at their
/// resting size are not aligned here: icons so that they move smoothly, labels because `capsule`
/// does it.
[[nodiscard]] Rect frame(const SceneNode& node, double scale);

/// `asked`, limited to half the shorter side.
[[nodiscard]] double cornerRadius(double asked, Size size);

/// A label's capsule around text of this size, centred in `room` and no larger than it.
[[nodiscard]] Rect capsule(const Rect& room, Size text, Size padding, double scale);

/// The scale at which to rasterise an image so that it is sharp when its longer side is `side`
/// points. Never less than the display's.
[[nodiscard]] double imageScale(Size image, double side, double scale);

}
