#include "Displays/DockPanel.hpp"

#include "Layout/DockEdge.hpp"
#include "Model/DockMetrics.hpp"
#include "Platform/Desktop/MotionSettings.hpp"
#include "Platform/RunLoop.hpp"

#include <utility>

namespace vireline {
namespace {

constexpr double collapseDelay = 0.6;
constexpr double pressCheckInterval = 0.25;
/// Between two frames in which only opacities change: half as many steps look the same, and labels
/// fade for as long as the pointer moves along a dock. Less than two frames of usual displays, so
/// that the second of these can show it.
constexpr double fadeInterval = 0.03;

/// Where the hosted view's bottom-left corner lies in a window of this size, y upwards. The view
/// always has the size of the planned frame, so that nothing in it moves when the window grows to
/// the display's edge or shrinks to the sliver there.
Point hostedOrigin(DockPosition position, bool autoHide, bool collapsed, Size window, Size view) {
    const auto edge = DockEdge::global(position);
    const Rect bounds{0, 0, window.width, window.height};
    const Rect hosted{0, 0, view.width, view.height};
    const double gap = autoHide && !collapsed ? DockMetrics::sliverThickness : 0;
    const Extent across = edge.atEdge(edge.across(bounds), edge.across(hosted).length, gap);
    return edge.rect(edge.along(hosted), across).origin();
}

}

DockPanel::DockPanel(const PanelSpec& spec, bool autoHide, const DockViewContext& context,
                     PanelWindows& windows)
    : spec_(spec)
    , autoHide_(autoHide)
    , runLoop_(context.runLoop)
    , motionSettings_(context.motionSettings)
    , hosting_(context, uiState_, spec, autoHide)
    , window_(windows.makePanel(spec.displayID, spec.frame, *this)) {
    hosting_.onInvalidate = lifetime_.guard([this] { sceneInvalidated(); });
    hosting_.onMenuRequest = lifetime_.guard(
        [this](const Menu& menu, const MenuPlace& place) { popUpMenu(menu, place); });
    hosting_.onReorderDrag = lifetime_.guard([this](bool isDragged) {
        isTileDragged_ = isDragged;
        window_->watchForCancel(isDragged);
        if (!isDragged)
            collapseLater();
    });
    if (autoHide_)
        applyCollapsed(true, false);
    else
        placeWindow(false);
    // Paint before the window is first shown, so that it never appears empty.
    showFrame();
}

DockPanel::~DockPanel() {
    window_->orderOut();
}

void DockPanel::orderFrontRegardless() {
    window_->orderFrontRegardless();
}

void DockPanel::retire() {
    // Hiding the window ends a press or a drag. That must still be handled, so the flag is set
    // afterwards.
    window_->orderOut();
    isRetired_ = true;
    collapseTimer_.reset();
    pressWatch_.reset();
}

void DockPanel::update(const PanelSpec& spec, bool autoHide) {
    spec_ = spec;
    const bool wasAutoHiding = std::exchange(autoHide_, autoHide);
    hosting_.update(spec, autoHide);
    if (autoHide) {
        applyCollapsed(collapsed(), false);
        if (!wasAutoHiding)
            collapseLater();
        return;
    }
    collapseTimer_.reset();
    uiState_.collapsed.set(false);
    placeWindow(false);
}

void DockPanel::applyCollapsed(bool collapsed, bool animate) {
    uiState_.collapsed.set(collapsed);
    placeWindow(animate && !motionSettings_.reducesMotion());
}

Rect DockPanel::windowFrame() const {
    if (!autoHide_)
        return spec_.frame;
    return collapsed() ? spec_.collapsedFrame() : spec_.hoverFrame();
}

/// A sliver needs no overhang. The state is read again for each call, since the window may report
/// an event from within the previous one.
void DockPanel::placeWindow(bool animate) {
    overhang_ = collapsed() ? Overhang{} : hosting_.overhang();
    window_->setOverhang(overhang_);
    window_->setFrame(windowFrame(), animate);
    pinHosting();
}

void DockPanel::pinHosting() {
    const Size view = spec_.frame.size();
    const Point origin =
        hostedOrigin(spec_.position, autoHide_, collapsed(), windowFrame().size(), view);
    window_->setHostedFrame({origin.x, origin.y, view.width, view.height});
}

void DockPanel::mouseEntered() {
    isPointerOver_ = true;
    expand();
}

void DockPanel::mouseExited() {
    isPointerOver_ = false;
    collapseLater();
}

void DockPanel::expand() {
    if (!autoHide_ || isRetired_)
        return;
    collapseTimer_.reset();
    if (collapsed())
        applyCollapsed(false, true);
}

void DockPanel::collapseLater() {
    if (!autoHide_ || isRetired_ || collapsed() || isHeldOpen())
        return;
    collapseTimer_ = runLoop_.after(collapseDelay, lifetime_.guard([this] {
        // Whatever holds it open now calls collapseLater() when it lets go.
        if (!isHeldOpen())
            applyCollapsed(true, true);
    }));
}

bool DockPanel::isHeldOpen() const noexcept {
    return isPointerOver_ || openMenus_ > 0 || isTileDragged_ || isDragOver_;
}

void DockPanel::popUpMenu(const Menu& menu, const MenuPlace& place) {
    ++openMenus_;
    window_->popUpMenu(menu, place, lifetime_.guard([this] {
        --openMenus_;
        collapseLater();
    }));
}

void DockPanel::pointerEvent(const PointerEvent& event) {
    if (isRetired_)
        return;
    watchPress(event.kind);
    hosting_.pointerEvent(event);
}

void DockPanel::watchPress(PointerEvent::Kind kind) {
    using Kind = PointerEvent::Kind;
    if (kind == Kind::pressed) {
        pressWatch_ =
            runLoop_.every(pressCheckInterval, lifetime_.guard([this] { window_->checkPress(); }));
    } else if (kind == Kind::released || kind == Kind::cancelled) {
        pressWatch_.reset();
    }
}

void DockPanel::dragEntered(const std::vector<std::string>& urls) {
    if (isRetired_)
        return;
    // Only files can be dropped, so other drags do not expand the dock.
    isDragOver_ = hosting_.dragEntered(urls);
    if (isDragOver_)
        expand();
}

bool DockPanel::dragMoved(Point at) {
    return !isRetired_ && hosting_.dragMoved(at);
}

void DockPanel::dragExited() {
    isDragOver_ = false;
    hosting_.dragExited();
    collapseLater();
}

bool DockPanel::dropped(Point at) {
    isDragOver_ = false;
    const bool isTaken = !isRetired_ && hosting_.dropped(at);
    collapseLater();
    return isTaken;
}

std::vector<AccessibleTile> DockPanel::accessibleTiles() {
    return isRetired_ ? std::vector<AccessibleTile>{} : hosting_.accessibleTiles();
}

void DockPanel::pressTile(std::uint32_t id) {
    if (!isRetired_)
        hosting_.press(id);
}

void DockPanel::showTileMenu(std::uint32_t id) {
    if (!isRetired_)
        hosting_.showMenu(id);
}

void DockPanel::sceneInvalidated() {
    if (!std::exchange(sceneIsStale_, true))
        window_->requestFrame();
}

void DockPanel::showFrame() {
    fadeTimer_.reset();
    const double now = runLoop_.now();
    if (std::exchange(sceneIsStale_, false)) {
        animator_.setTarget(hosting_.makeScene(), now, motionSettings_.reducesMotion());
        // The overhang depends on the icon size, which can change without a new plan.
        if (!collapsed() && overhang_ != hosting_.overhang())
            placeWindow(false);
    }
    window_->present(animator_.frame(now));
    if (!animator_.isMoving(now))
        return;
    if (animator_.onlyFades(now))
        fadeTimer_ =
            runLoop_.after(fadeInterval, lifetime_.guard([this] { window_->requestFrame(); }));
    else
        window_->requestFrame();
}

}
