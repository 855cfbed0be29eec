#include "Panels/PanelPicture.hpp"

#include "Painting/Pixels/Pixels.hpp"
#include "Painting/SceneDamage.hpp"

#include <QPolygon>
#include <utility>

namespace vireline::xdg {

void PanelPicture::setScene(const Scene& scene) {
    ViewMappings::place(nextPlaces_, scene, layout_.mapping);
    SceneDamage::add(damage_, {scene_.nodes, places_}, {scene.nodes, nextPlaces_});
    scene_ = scene;
    std::swap(places_, nextPlaces_);
}

void PanelPicture::setLayout(const PanelLayout& layout) {
    layout_ = layout;
    ViewMappings::place(places_, scene_, layout_.mapping);
    damageAll();
}

Damage PanelPicture::paint(QImage& image, const DockColors& colors, Backdrop backdrop) {
    const Damage damage = std::exchange(damage_, {});
    const Canvas canvas = Pixels::canvas(image);
    painter_.paint(canvas, {scene_.nodes, places_}, layout_.mapping.scale, colors, damage.rects());
    if (backdrop == Backdrop::opaque) {
        for (const QRect& gap : uncoveredByView())
            Pixels::fill(canvas, gap, colors.glassBottom.rgba());
    }
    return damage;
}

QRect PanelPicture::inputRegion() const {
    const QRect taken = scene_.inputRegion
                            ? layout_.mapping.pixels(*scene_.inputRegion).toAlignedRect()
                            : layout_.active;
    return taken & window();
}

QRegion PanelPicture::glass() const {
    QRegion region;
    for (const QPainterPath& outline : ScenePainter::glassOutlines({scene_.nodes, places_}))
        region += QRegion{outline.toFillPolygon().toPolygon()};
    return region;
}

/// The gap between the view and the display's edge, for a dock that takes input in its whole frame.
/// An opaque window receives the pointer only where it is painted, so the gap is painted too.
QRegion PanelPicture::uncoveredByView() const {
    const QRect view = ViewMappings::snapped(
        layout_.mapping.pixels({0, 0, layout_.view.width, layout_.view.height}));
    return QRegion{layout_.active & inputRegion()} - view;
}

}
