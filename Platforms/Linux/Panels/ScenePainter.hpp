/// Paints a scene's few kinds of nodes. Nothing else on this platform looks at a node's kind to
/// draw it.
#pragma once

#include "Panels/DockColors.hpp"
#include "Panels/ViewMapping.hpp"
#include "Views/Scene.hpp"

#include <QPainter>
#include <QPainterPath>
#include <vector>

namespace vireline::x11::ScenePainter {

/// Paints all nodes that `damage` touches, back to front, over what is there. The painter is in
/// device pixels, without a transformation.
void paint(QPainter& painter, const Scene& scene, const ViewMapping& mapping,
           const DockColors& colors, const QRect& damage);

/// The outlines of the scene's glass, the label's included, in pixels: what a compositor may blur
/// the background of.
[[nodiscard]] std::vector<QPainterPath> glassOutlines(const Scene& scene,
                                                      const ViewMapping& mapping);

}
