#include "Panels/LayerPanelWindow.hpp"

#include "Displays/WaylandScreens.hpp"
#include "Panels/Surfaces/DockContext.hpp"
#include "Platform/PanelTitles.hpp"
#include "Toolkit/Appearance.hpp"

#include <QScreen>
#include <utility>

namespace vireline::wayland {
namespace {

/// Milliseconds between the frames of a dock that is not shown.
constexpr int hiddenFrameInterval = 16;

QRect pixelsOf(const QRectF& rect, double scale) {
    const QPoint corner = (rect.topLeft() * scale).toPoint();
    const QPoint opposite = (rect.bottomRight() * scale).toPoint();
    return {corner, QSize{opposite.x() - corner.x(), opposite.y() - corner.y()}};
}

}

LayerPanelWindow::LayerPanelWindow(DockContext& context, std::uint32_t displayID, const Rect& frame,
                                   PanelWindowListener& listener)
    : context_(context)
    , displayID_(displayID)
    , listener_(listener)
    , tracker_(listener)
    , frame_(onDisplay(frame))
    , hostedFrame_{0, 0, frame.width, frame.height}
    , accessible_(std::make_unique<xdg::AccessibleDock>(
          xdg::DockAccess{*this, listener, accessiblePanelTitle(context.screens.nameOf(displayID)),
                          [this](const Rect& view) { return placeOnScreen(view); }})) {
    setTitle(QString::fromStdString(panelTitle(displayID)));
    tracker_.setViewArea(overhang_.around(hostedFrame_.size()));
    hiddenFrames_.setSingleShot(true);
    hiddenFrames_.setInterval(hiddenFrameInterval);
    QObject::connect(&hiddenFrames_, &QTimer::timeout, this, [this] { showFrame(); });
    subscriptions_.push_back(context.screens.observeParameters([this] { displaysChanged(); }));
    subscriptions_.push_back(context.outputs.observe([this] { displaysChanged(); }));
    subscriptions_.push_back(context.observeBlur([this] { lookChanged(); }));
    subscriptions_.push_back(context.appearance.observe([this] { lookChanged(); }));
}

LayerPanelWindow::~LayerPanelWindow() {
    menu_.reset();
    removeSurface();
    accessible_.reset();
}

/// The kit animates the content; the surface only has to be large enough for both frames.
void LayerPanelWindow::setFrame(const Rect& frame, bool animate) {
    const QRectF before = extentBefore_.value_or(extent());
    frame_ = onDisplay(frame);
    overhang_ = nextOverhang_;
    const bool shrinks = before.contains(extent());
    extentBefore_ = animate && shrinks ? std::optional{before} : std::nullopt;
    tracker_.setViewArea(overhang_.around(hostedFrame_.size()));
    updateSoon();
}

void LayerPanelWindow::setHostedFrame(const Rect& frame) {
    hostedFrame_ = frame;
    tracker_.setViewArea(overhang_.around(frame.size()));
    updateSoon();
}

void LayerPanelWindow::present(const Scene& scene) {
    scene_ = scene;
    if (picture_)
        picture_->setScene(scene);
    accessible_->refresh();
    updateSoon();
}

void LayerPanelWindow::orderFrontRegardless() {
    isWanted_ = true;
    makeSurface();
}

void LayerPanelWindow::orderOut() {
    isWanted_ = false;
    menu_.reset();
    removeSurface();
    tracker_.hidden();
}

/// The display as our own connection knows it; null if it, or Qt, does not know it.
const Output* LayerPanelWindow::output() const {
    return context_.outputs.named(context_.screens.nameOf(displayID_));
}

void LayerPanelWindow::makeSurface() {
    const Output* const shownOn = output();
    if (shownOn == nullptr || surface_)
        return;
    relayout();
    surface_ = std::make_unique<DockSurface>(context_, *shownOn, place_, *this,
                                             DockSurface::Events{[this] { configured(); },
                                                                 [this] { closedByCompositor(); },
                                                                 [this] { frameDue(); }});
}

void LayerPanelWindow::removeSurface() {
    openMenu_.reset();
    keys_.reset();
    picture_.reset();
    if (std::exchange(surface_, nullptr))
        accessible_->setShown(false);
    isPointerOver_ = false;
    if (isFrameAsked_)
        requestTick();
}

/// Also called when the surface's scale has changed.
void LayerPanelWindow::configured() {
    if (!picture_) {
        picture_ = std::make_unique<LayerPicture>(context_, *surface_);
        picture_->setScene(scene_);
        accessible_->setShown(true);
        hiddenFrames_.stop();
    }
    updateIsDue_ = true;
    update();
    if (isFrameAsked_)
        requestTick();
}

/// The display is gone, or off. If it comes back, so does the dock.
void LayerPanelWindow::closedByCompositor() {
    QMetaObject::invokeMethod(this, lifetime_.guard([this] {
        if (menu_)
            menu_->end();
        removeSurface();
        tracker_.hidden();
        displaysChanged();
    }),
                              Qt::QueuedConnection);
}

void LayerPanelWindow::displaysChanged() {
    if (isWanted_)
        makeSurface();
    const Output* const shownOn = output();
    if (surface_ && shownOn != nullptr)
        surface_->follow(*shownOn);
    updateSoon();
}

void LayerPanelWindow::lookChanged() {
    if (picture_)
        picture_->lookChanged();
    updateSoon();
}

void LayerPanelWindow::requestFrame() {
    isFrameAsked_ = true;
    requestTick();
}

/// A visible surface gets its frames from the compositor, none while its display is off, but the
/// first one at once.
void LayerPanelWindow::requestTick() {
    if (!picture_) {
        if (!hiddenFrames_.isActive())
            hiddenFrames_.start();
    } else if (!surface_->isFramePending() && !std::exchange(tickIsDue_, true)) {
        QMetaObject::invokeMethod(this, lifetime_.guard([this] {
            tickIsDue_ = false;
            showFrame();
        }),
                                  Qt::QueuedConnection);
    }
}

void LayerPanelWindow::frameDue() {
    if (isFrameAsked_ || moveIsDue_)
        showFrame();
}

/// Whatever is presented for a frame is shown in that frame.
void LayerPanelWindow::showFrame() {
    deliverMove();
    if (std::exchange(isFrameAsked_, false)) {
        isInFrame_ = true;
        listener_.frameDue();
        isInFrame_ = false;
    }
    if (!isFrameAsked_ && std::exchange(extentBefore_, std::nullopt))
        updateIsDue_ = true;
    update();
}

/// Coalesces all changes within one turn of the event loop.
void LayerPanelWindow::updateSoon() {
    if (std::exchange(updateIsDue_, true) || isInFrame_)
        return;
    QMetaObject::invokeMethod(this, lifetime_.guard([this] { update(); }), Qt::QueuedConnection);
}

/// Place, pixels and regions change with one commit.
void LayerPanelWindow::update() {
    const bool isDue = std::exchange(updateIsDue_, false);
    if (!picture_)
        return;
    bool hasMoved = false;
    if (isDue) {
        relayout();
        hasMoved = place_ != surface_->place();
        if (hasMoved)
            surface_->setPlace(place_);
    }
    picture_->update(hasMoved, isFrameAsked_);
}

void LayerPanelWindow::relayout() {
    // Surfaces have no fractions of logical pixels.
    place_ = extentBefore_.value_or(extent()).toAlignedRect();
    setGeometry(placeInQt());
    const double scale = surface_ ? surface_->scale() : 1;
    const QRectF view{frame_.x() + hostedFrame_.x,
                      frame_.y() + frame_.height() - hostedFrame_.y - hostedFrame_.height,
                      hostedFrame_.width, hostedFrame_.height};
    const QPointF corner = place_.topLeft();
    mapping_ = {((view.topLeft() - corner) * scale).toPoint(), scale};
    if (picture_) {
        picture_->setLayout({.window = pixelsOf({{0, 0}, place_.size()}, scale).size(),
                             .active = pixelsOf(frame_.translated(-corner), scale),
                             .mapping = mapping_,
                             .view = hostedFrame_.size()});
    }
}

QRectF LayerPanelWindow::onDisplay(const Rect& global) const {
    return context_.screens.toQt(global).translated(-context_.screens.cornerOf(displayID_));
}

QRectF LayerPanelWindow::extent() const {
    return frame_.adjusted(-overhang_.left, -overhang_.top, overhang_.right, overhang_.bottom);
}

QRect LayerPanelWindow::placeInQt() const {
    const QScreen* const shownOn = context_.screens.qtScreen(displayID_);
    return shownOn == nullptr ? place_ : place_.translated(shownOn->geometry().topLeft());
}

Point LayerPanelWindow::viewPosition(QPointF position) const {
    return mapping_.toView(position * mapping_.scale);
}

QRect LayerPanelWindow::placeOnScreen(const Rect& view) const {
    const QRectF pixels = mapping_.pixels(view);
    const QPointF corner = placeInQt().topLeft() + pixels.topLeft() / mapping_.scale;
    return QRectF{corner, pixels.size() / mapping_.scale}.toAlignedRect();
}

QAccessibleInterface* LayerPanelWindow::accessibleRoot() const {
    return accessible_ ? accessible_->root() : nullptr;
}

}
