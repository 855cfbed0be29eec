#include "Panels/PanelPicture.hpp"

#include "Painting/Pixels.hpp"
#include "Painting/SceneDamage.hpp"
#include "Panels/DesktopWatch.hpp"
#include "Panels/OpaqueOutline.hpp"
#include "Panels/PanelContext.hpp"
#include "Toolkit/Appearance.hpp"

#include <QPolygon>
#include <QRegion>
#include <algorithm>

namespace vireline::x11 {
namespace {

xcb_rectangle_t xcbRectangle(const QRect& rect) {
    return {static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
            static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height())};
}

}

PanelPicture::PanelPicture(const PanelContext& context, xcb_window_t window)
    : desktop_(context.desktop)
    , appearance_(context.appearance)
    , surface_(context.connection, context.drawing, window)
    , shape_(context.connection, window) {}

void PanelPicture::setScene(const Scene& scene) {
    ViewMappings::place(nextPlaces_, scene, layout_.mapping);
    SceneDamage::add(damage_, {scene_.nodes, places_}, {scene.nodes, nextPlaces_});
    const bool areRegionsNew = scene.quietRegions != scene_.quietRegions;
    scene_ = scene;
    std::swap(places_, nextPlaces_);
    if (areRegionsNew)
        placeQuietAreas();
}

void PanelPicture::setLayout(const PanelLayout& layout) {
    if (layout == layout_)
        return;
    layout_ = layout;
    ViewMappings::place(places_, scene_, layout_.mapping);
    placeQuietAreas();
    damageAll();
}

void PanelPicture::update(bool isShown) {
    applyInput();
    if (!damage_.isEmpty()) {
        const Damage painted = paint();
        applyBackdrop();
        if (isShown)
            surface_.upload(painted, base());
    }
    // Must come last, so that the old regions stay covered until the new ones are in place.
    shape_.coverUpcomingMove({layout_.lag.x(), layout_.lag.y()});
}

void PanelPicture::exposed() {
    Damage all;
    all.add(surface_.area());
    surface_.upload(all, base());
    if (std::exchange(hasBackground_, false))
        surface_.endBackground();
}

void PanelPicture::prepareToAppear() {
    update(false);
    surface_.beginBackground(base());
    hasBackground_ = true;
}

Damage PanelPicture::paint() {
    const Damage damage = std::exchange(damage_, {});
    surface_.resize(layout_.window);
    const Canvas canvas = Pixels::canvas(surface_.canvas());
    const DockColors used = colors();
    painter_.paint(canvas, {scene_.nodes, places_}, layout_.mapping.scale, used, damage.rects());
    if (backdrop() == Backdrop::opaque) {
        for (const QRect& gap : uncoveredByView())
            Pixels::fill(canvas, gap, used.glassBottom.rgba());
    }
    return damage;
}

void PanelPicture::placeQuietAreas() {
    quietAreas_.clear();
    for (const Rect& region : scene_.quietRegions)
        quietAreas_.push_back(layout_.mapping.pixelsIn(region) & QRect{{0, 0}, layout_.window});
}

void PanelPicture::applyInput() {
    const QRect region = inputRegion();
    shape_.setInput(PixelRect{region.x(), region.y(), region.width(), region.height()});
}

void PanelPicture::applyBackdrop() {
    const Backdrop kind = backdrop();
    shape_.setBounding(kind == Backdrop::opaque ? OpaqueOutline::rectangles(surface_.image())
                                                : wholeWindow());
    shape_.setBlurred(kind == Backdrop::blurred ? blurRegion() : std::vector<xcb_rectangle_t>{});
}

QRect PanelPicture::inputRegion() const {
    const QRect taken = scene_.inputRegion
                            ? layout_.mapping.pixels(*scene_.inputRegion).toAlignedRect()
                            : layout_.active;
    return taken & QRect{{0, 0}, layout_.window};
}

/// Compositors draw a shadow around any window without a shape, even a transparent one. The shape
/// also covers the requested size, so that the window is not clipped when it reaches that.
std::vector<xcb_rectangle_t> PanelPicture::wholeWindow() const {
    return {xcbRectangle({{0, 0}, layout_.window.expandedTo(layout_.asked)})};
}

Backdrop PanelPicture::backdrop() const {
    const DesktopOffer& offer = desktop_.offer();
    if (!offer.isComposited || !surface_.hasAlpha())
        return Backdrop::opaque;
    return offer.blursBehind ? Backdrop::blurred : Backdrop::translucent;
}

DockColors PanelPicture::colors() const {
    return DockColors::of(appearance_.isDark(), backdrop());
}

/// The colour under translucent pixels if there is no compositor.
std::optional<std::uint32_t> PanelPicture::base() const {
    return backdrop() == Backdrop::opaque ? std::optional{colors().labelGlass.rgba()}
                                          : std::nullopt;
}

/// The gap between the view and the display's edge, for a dock that takes input in its whole frame.
/// An opaque window receives the pointer only where it is painted, so the gap is painted too.
QRegion PanelPicture::uncoveredByView() const {
    const QRect view = ViewMappings::snapped(
        layout_.mapping.pixels({0, 0, layout_.view.width, layout_.view.height}));
    return QRegion{layout_.active & inputRegion()} - view;
}

std::vector<xcb_rectangle_t> PanelPicture::blurRegion() const {
    QRegion region;
    for (const QPainterPath& outline : ScenePainter::glassOutlines({scene_.nodes, places_}))
        region += QRegion{outline.toFillPolygon().toPolygon()};
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& rect : region)
        rectangles.push_back(xcbRectangle(rect));
    return rectangles;
}

bool PanelPicture::takesPointer(int x, int y) const {
    return QRect{{0, 0}, layout_.window}.contains(x, y) && shape_.takesPointer(x, y);
}

}
