/// Where a scene's nodes lie on the pixels of a display. Rectangles are in the view's coordinates:
/// points, origin top-left, y downwards; a scale is pixels per point.
#pragma once

#include "Presentation/Scene.hpp"

namespace vireline::macos::ScenePlacement {

/// The nearest whole pixels edge by edge, never without area.
[[nodiscard]] Rect snapped(const Rect& rect, double scale);

/// At the nearest whole pixel with the nearest whole size, so that equal things stay equal wherever
/// they lie. Never without area.
[[nodiscard]] Rect snappedAsWhole(const Rect& rect, double scale);

/// Where a node is drawn, its own scale and its offset included. What is drawn sharp lies on whole
/// pixels; icons that have grown or shrunk lie between them, so as to move smoothly.
[[nodiscard]] Rect frame(const SceneNode& node, double scale);

/// The radius that is drawn where `asked` is asked for: at most that of a capsule.
[[nodiscard]] double cornerRadius(double asked, Size size);

/// A label's capsule around text of that size, centred in the node's frame and no larger than it.
[[nodiscard]] Rect capsule(const Rect& room, Size text, Size padding, double scale);

/// Pixels per point of an image's own size, for it to be sharp with `side` points on its longer
/// side. Never fewer than the display has.
[[nodiscard]] double imageScale(Size image, double side, double scale);

}
