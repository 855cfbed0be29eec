/// Describes a dock's tiles for assistive technology.
#pragma once

#include "Layout/StripLayout.hpp"
#include "Model/DockViewModel.hpp"
#include "Presentation/AccessibleTile.hpp"
#include "Views/Contents/DockTiles.hpp"

#include <span>
#include <vector>

namespace vireline::AccessibleTiles {

/// In the order of the strip. `frames` must have one entry for each tile. The values include what
/// the apps signal.
[[nodiscard]] std::vector<AccessibleTile>
describe(std::span<const DockTile> tiles, const StripFrames& frames, const DockViewModel& model);

}
