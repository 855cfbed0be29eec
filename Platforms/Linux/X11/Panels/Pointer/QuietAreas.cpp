#include "Panels/Pointer/QuietAreas.hpp"

#include <QRegion>

namespace vireline::x11::QuietAreas {

std::vector<QRect> of(const Scene& scene, const xdg::PanelLayout& layout) {
    std::vector<QRect> areas;
    if (!scene.hoverAreas)
        return areas;
    const QRect window{{0, 0}, layout.window};
    QRegion rest{window};
    for (const Rect& tile : *scene.hoverAreas) {
        // Tiles of an overflowing strip may be partly or entirely outside the window.
        const QRect area = layout.mapping.pixelsIn(tile) & window;
        if (area.isEmpty())
            continue;
        areas.push_back(area);
        rest -= area;
    }
    areas.insert(areas.end(), rest.begin(), rest.end());
    return areas;
}

}
