/// The planned dock at each edge of a display.
#pragma once

#include "Layout/PanelPlanner.hpp"

namespace vireline::test {

inline constexpr PanelSpec bottomSpec{7, {100, 4, 300, 84}, 600, DockPosition::bottom};
inline constexpr PanelSpec leftSpec{7, {-1276, 100, 58, 300}, 600, DockPosition::left};
inline constexpr PanelSpec rightSpec{7, {1218, 100, 58, 300}, 600, DockPosition::right};

}
