#include "Displays/DockPanel.hpp"

#include "Displays/DockMetrics.hpp"
#include "Platform/RunLoop.hpp"

#include <utility>

namespace vireline {
namespace {

constexpr double collapseDelay = 0.6;

/// Where the hosted view's bottom-left corner lies in a window of this size, y upwards. The view is
/// as large as the planned frame whatever the window's size, so that nothing in it moves when the
/// window grows towards the display's edge or shrinks to the sliver there.
Point hostedOrigin(DockPosition position, bool autoHide, bool collapsed, Size window, Size view) {
    if (collapsed && position == DockPosition::right)
        return {window.width - view.width, 0};
    if (collapsed || !autoHide)
        return {0, 0};
    switch (position) {
    case DockPosition::bottom:
        return {0, DockMetrics::sliverThickness};
    case DockPosition::left:
        return {DockMetrics::sliverThickness, 0};
    case DockPosition::right:
        break;
    }
    return {0, 0};
}

}

DockPanel::DockPanel(const PanelSpec& spec, bool autoHide, const DockViewContext& context,
                     PanelWindows& windows)
    : spec_(spec)
    , autoHide_(autoHide)
    , runLoop_(context.runLoop)
    , hosting_(context, uiState_, spec, autoHide)
    , window_(windows.makePanel(spec.displayID, spec.frame, *this)) {
    hosting_.onSceneChange =
        lifetime_.guard([this](const Scene& scene) { window_->present(scene); });
    hosting_.onMenuRequest =
        lifetime_.guard([this](const Menu& menu, Point at, std::function<void(std::size_t)> done) {
            window_->popUpMenu(menu, at, std::move(done));
        });
    window_->present(hosting_.scene());
    if (autoHide_) {
        applyCollapsed(true, false);
    } else {
        pinHosting();
    }
}

DockPanel::~DockPanel() {
    window_->orderOut();
}

void DockPanel::orderFrontRegardless() {
    window_->orderFrontRegardless();
}

void DockPanel::update(const PanelSpec& spec, bool autoHide) {
    spec_ = spec;
    autoHide_ = autoHide;
    hosting_.update(spec, autoHide);
    if (autoHide) {
        applyCollapsed(collapsed_, false);
        return;
    }
    collapseTimer_.reset();
    setCollapsed(false);
    window_->setFrame(spec.frame, false);
    pinHosting();
}

void DockPanel::applyCollapsed(bool collapsed, bool animate) {
    setCollapsed(collapsed);
    window_->setFrame(collapsed ? spec_.collapsedFrame() : spec_.hoverFrame(), animate);
    pinHosting();
}

void DockPanel::setCollapsed(bool collapsed) {
    collapsed_ = collapsed;
    uiState_.collapsed.set(collapsed);
}

void DockPanel::pinHosting() {
    const Size view = spec_.frame.size();
    Size window = view;
    if (autoHide_) {
        window = (collapsed_ ? spec_.collapsedFrame() : spec_.hoverFrame()).size();
    }
    const Point origin = hostedOrigin(spec_.position, autoHide_, collapsed_, window, view);
    window_->setHostedFrame({origin.x, origin.y, view.width, view.height});
}

void DockPanel::mouseEntered() {
    if (!autoHide_)
        return;
    collapseTimer_.reset();
    if (collapsed_)
        applyCollapsed(false, true);
}

void DockPanel::mouseExited() {
    if (!autoHide_ || collapsed_)
        return;
    collapseTimer_ =
        runLoop_.after(collapseDelay, lifetime_.guard([this] { applyCollapsed(true, true); }));
}

void DockPanel::pointerEvent(const PointerEvent& event) {
    hosting_.pointerEvent(event);
}

}
