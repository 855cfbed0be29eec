/// Which pixels differ between two scenes.
#pragma once

#include "Panels/Damage.hpp"
#include "Panels/ViewMapping.hpp"
#include "Views/Scene.hpp"

namespace vireline::x11::SceneDamage {

/// Adds what has to be painted again to get from one to the other; nothing for scenes that look the
/// same.
void add(Damage& damage, const Scene& before, const Scene& after, const ViewMapping& mapping);

}
