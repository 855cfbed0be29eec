/// The dock's fixed dimensions, in points.
#pragma once

namespace vireline::DockMetrics {

inline constexpr double iconSize = 44;
/// Gap between adjacent tiles and separators.
inline constexpr double iconSpacing = 6;
/// The margin at each end of the strip.
inline constexpr double stripPadding = 7;
/// Added to the icon size across the strip.
inline constexpr double stripHeightPadding = 14;
/// Gap between a panel and the display edge it sits on.
inline constexpr double bottomMargin = 4;
inline constexpr double separatorWidth = 1;
/// Icons are never fitted to less than this; the strip overflows instead.
inline constexpr double minIconSize = 16;
/// The space kept free at each end of the display along the strip.
inline constexpr double screenEdgeMargin = 10;
/// Thickness of a collapsed panel.
inline constexpr double sliverThickness = 4;
inline constexpr double cornerRadius = 18;
/// The dot under a running app's icon.
inline constexpr double indicatorDiameter = 4;
/// A panel's length if the computed one is not positive.
inline constexpr double placeholderWidth = 640;
/// Room for the name label above the icons of a bottom panel.
inline constexpr double labelZoneHeight = 26;
inline constexpr double stripHeight = iconSize + stripHeightPadding;
inline constexpr double panelHeight = stripHeight + labelZoneHeight;

}
