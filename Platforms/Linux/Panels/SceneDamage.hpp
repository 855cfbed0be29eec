/// Which pixels differ between two scenes.
#pragma once

#include "Panels/ViewMapping.hpp"
#include "Views/Scene.hpp"

#include <QRegion>

namespace vireline::x11::SceneDamage {

/// What has to be painted again to get from one to the other; nothing for equal ones.
[[nodiscard]] QRegion between(const Scene& before, const Scene& after, const ViewMapping& mapping);

}
