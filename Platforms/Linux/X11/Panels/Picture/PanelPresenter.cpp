#include "Panels/Picture/PanelPresenter.hpp"

#include "Panels/Context/DesktopWatch.hpp"
#include "Panels/Context/PanelContext.hpp"
#include "Panels/Picture/OpaqueOutline.hpp"
#include "Toolkit/Appearance.hpp"

#include <QRegion>
#include <utility>

namespace vireline::x11 {
namespace {

xcb_rectangle_t xcbRectangle(const QRect& rect) {
    return {static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
            static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height())};
}

}

PanelPresenter::PanelPresenter(const PanelContext& context, xcb_window_t window)
    : desktop_(context.desktop)
    , appearance_(context.appearance)
    , surface_(context.connection, context.drawing, window)
    , shape_(context.connection, window) {}

void PanelPresenter::setLayout(const xdg::PanelLayout& layout, const PanelDelay& delay) {
    if (layout == picture_.layout() && delay == delay_)
        return;
    delay_ = delay;
    picture_.setLayout(layout);
}

void PanelPresenter::update(bool isShown) {
    applyInput();
    shape_.coverUpcomingMove({delay_.lag.x(), delay_.lag.y()});
    if (!picture_.isDamaged())
        return shape_.apply();
    surface_.resize(picture_.layout().window);
    const xdg::Damage painted = picture_.paint(surface_.canvas(), colors(), backdrop());
    applyBackdrop();
    shape_.apply();
    if (isShown)
        surface_.upload(painted, base());
}

void PanelPresenter::exposed() {
    xdg::Damage all;
    all.add(surface_.area());
    surface_.upload(all, base());
    if (std::exchange(hasBackground_, false))
        surface_.endBackground();
}

void PanelPresenter::prepareToAppear() {
    update(false);
    surface_.beginBackground(base());
    hasBackground_ = true;
}

void PanelPresenter::applyInput() {
    const QRect region = picture_.inputRegion();
    shape_.setInput(PixelRect{region.x(), region.y(), region.width(), region.height()});
}

void PanelPresenter::applyBackdrop() {
    const xdg::Backdrop kind = backdrop();
    shape_.setBounding(kind == xdg::Backdrop::opaque ? OpaqueOutline::rectangles(surface_.image())
                                                     : wholeWindow());
    shape_.setBlurred(kind == xdg::Backdrop::blurred ? blurRegion()
                                                     : std::vector<xcb_rectangle_t>{});
}

/// Compositors draw a shadow around any window without a shape, even a transparent one. The shape
/// also covers the requested size, so that the window is not clipped when it reaches that.
std::vector<xcb_rectangle_t> PanelPresenter::wholeWindow() const {
    return {xcbRectangle({{0, 0}, picture_.layout().window.expandedTo(delay_.asked)})};
}

xdg::Backdrop PanelPresenter::backdrop() const {
    const DesktopOffer& offer = desktop_.offer();
    if (!offer.isComposited || !surface_.hasAlpha())
        return xdg::Backdrop::opaque;
    return offer.blursBehind ? xdg::Backdrop::blurred : xdg::Backdrop::translucent;
}

xdg::DockColors PanelPresenter::colors() const {
    return xdg::DockColors::of(appearance_.isDark(), backdrop());
}

/// The colour under translucent pixels if there is no compositor.
std::optional<std::uint32_t> PanelPresenter::base() const {
    return backdrop() == xdg::Backdrop::opaque ? std::optional{colors().labelGlass.rgba()}
                                               : std::nullopt;
}

std::vector<xcb_rectangle_t> PanelPresenter::blurRegion() const {
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& rect : picture_.glass())
        rectangles.push_back(xcbRectangle(rect));
    return rectangles;
}

bool PanelPresenter::takesPointer(int x, int y) const {
    return picture_.window().contains(x, y) && shape_.takesPointer(x, y);
}

}
