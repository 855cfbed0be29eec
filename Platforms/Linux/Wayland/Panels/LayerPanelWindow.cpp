#include "Panels/LayerPanelWindow.hpp"

#include "Connection/QtNative.hpp"
#include "Displays/WaylandScreens.hpp"
#include "Panels/DraggedFiles.hpp"
#include "Panels/LayerShellContext.hpp"
#include "Toolkit/Appearance.hpp"

#include <wayland-client.h>

#include <QDragEnterEvent>
#include <QEnterEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPlatformSurfaceEvent>
#include <QScreen>
#include <cmath>
#include <utility>

namespace vireline::wayland {
namespace {

/// Milliseconds between the frames of a dock that is not shown.
constexpr int hiddenFrameInterval = 16;

/// The whole logical pixels that contain the rectangle, since surfaces have no fractions.
QRect whole(const QRectF& rect) {
    const int left = static_cast<int>(std::floor(rect.left()));
    const int top = static_cast<int>(std::floor(rect.top()));
    return {left, top, static_cast<int>(std::ceil(rect.right())) - left,
            static_cast<int>(std::ceil(rect.bottom())) - top};
}

QRect pixelsOf(const QRectF& rect, double scale) {
    const QPoint corner = (rect.topLeft() * scale).toPoint();
    const QPoint opposite = (rect.bottomRight() * scale).toPoint();
    return {corner, QSize{opposite.x() - corner.x(), opposite.y() - corner.y()}};
}

}

LayerPanelWindow::LayerPanelWindow(LayerShellContext& context, std::uint32_t displayID,
                                   const Rect& frame, PanelWindowListener& listener)
    : context_(context)
    , displayID_(displayID)
    , listener_(listener)
    , tracker_(listener)
    , frame_(onDisplay(frame))
    , hostedFrame_{0, 0, frame.width, frame.height}
    , accessible_(std::make_unique<xdg::AccessibleDock>(
          xdg::DockAccess{*this, listener, "Vireline dock on " + context.screens.nameOf(displayID),
                          [this](const Rect& view) { return placeOnScreen(view); }})) {
    LayerRole::prepare(*this);
    setTitle(QStringLiteral("Vireline dock #%1").arg(displayID));
    tracker_.setViewArea(overhang_.around(hostedFrame_.size()));
    hiddenFrames_.setSingleShot(true);
    hiddenFrames_.setInterval(hiddenFrameInterval);
    QObject::connect(&hiddenFrames_, &QTimer::timeout, this, [this] { showFrame(); });
    subscriptions_.push_back(context.screens.observeParameters([this] { displaysChanged(); }));
    subscriptions_.push_back(context.observeBlur([this] { lookChanged(); }));
    subscriptions_.push_back(context.appearance.observe([this] { lookChanged(); }));
}

LayerPanelWindow::~LayerPanelWindow() {
    menu_.reset();
    accessible_.reset();
    removeSurface();
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

void LayerPanelWindow::makeSurface() {
    QScreen* const screen = context_.screens.qtScreen(displayID_);
    if (screen == nullptr || role_)
        return;
    // Qt may have made a surface of its own while the window's screen was gone.
    destroy();
    relayout();
    role_ = std::make_unique<LayerRole>(
        context_, *this, *screen, place_,
        LayerRole::Events{[this] { configured(); }, [this] { closedByCompositor(); }});
}

/// Qt 6.4 destroys the surface of a visible window before it sends `SurfaceAboutToBeDestroyed`.
void LayerPanelWindow::removeSurface() {
    dropRoles();
    destroy();
}

/// The surface's roles must go before it does, those of popups first.
void LayerPanelWindow::dropRoles() {
    popup_.reset();
    picture_.reset();
    role_.reset();
    isConfigured_ = false;
    isPointerOver_ = false;
}

void LayerPanelWindow::configured() {
    if (std::exchange(isConfigured_, true))
        return;
    picture_ = std::make_unique<LayerPicture>(context_, *this);
    picture_->setScene(scene_);
    setVisible(true);
    hiddenFrames_.stop();
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
    updateSoon();
}

void LayerPanelWindow::lookChanged() {
    if (picture_)
        picture_->lookChanged();
    updateSoon();
}

bool LayerPanelWindow::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::PlatformSurface:
        if (static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
            QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed)
            dropRoles();
        break;
    case QEvent::Expose:
        // Qt sends this when the surface's scale has changed, too.
        if (picture_ && isExposed() && !isPlacing_) {
            updateIsDue_ = true;
            update();
            picture_->repaint();
        }
        break;
    case QEvent::UpdateRequest:
        showFrame();
        return true;
    case QEvent::Enter:
        pointer_ = static_cast<QEnterEvent*>(event)->position();
        isPointerOver_ = true;
        tracker_.entered(viewPosition(pointer_));
        break;
    case QEvent::Leave:
        moveIsDue_ = false;
        isPointerOver_ = false;
        isButtonHeld_ = false;
        tracker_.left(pointerState());
        break;
    case QEvent::DragEnter:
        listener_.dragEntered(
            DraggedFiles::urls(*static_cast<QDragEnterEvent*>(event)->mimeData()));
        event->accept();
        return true;
    case QEvent::DragMove:
        dragMoved(*static_cast<QDropEvent*>(event));
        return true;
    case QEvent::DragLeave:
        listener_.dragExited();
        return true;
    case QEvent::Drop:
        dropped(*static_cast<QDropEvent*>(event));
        return true;
    case QEvent::Close:
        // A dock is closed only together with its display.
        event->ignore();
        return true;
    default:
        break;
    }
    return QWindow::event(event);
}

void LayerPanelWindow::requestFrame() {
    isFrameAsked_ = true;
    requestTick();
}

/// A visible surface gets its frames from the compositor: none while its display is off.
void LayerPanelWindow::requestTick() {
    if (picture_) {
        requestUpdate();
    } else if (!hiddenFrames_.isActive()) {
        hiddenFrames_.start();
    }
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
        hasMoved = moveToPlace();
    }
    picture_->update(hasMoved, isFrameAsked_);
}

/// Returns whether the surface has to be committed for that.
bool LayerPanelWindow::moveToPlace() {
    const bool hasMoved = place_ != role_->place();
    if (hasMoved) {
        redrawBelow();
        role_->setPlace(place_);
    }
    // Qt reports an exposure from within, but there is nothing to show yet.
    isPlacing_ = true;
    if (geometry() != placeInQt())
        setGeometry(placeInQt());
    isPlacing_ = false;
    return hasMoved;
}

/// Has the compositor draw everything at the surface's present place again. sway 1.7 forgets the
/// old place of a surface that moves or shrinks, except on the output at the layout's origin.
void LayerPanelWindow::redrawBelow() {
    wl_surface* const surface = QtNative::surface(*this);
    wl_surface_damage(surface, 0, 0, role_->place().width(), role_->place().height());
    wl_surface_commit(surface);
}

void LayerPanelWindow::relayout() {
    place_ = whole(extentBefore_.value_or(extent()));
    const double scale = handle() != nullptr ? devicePixelRatio() : 1;
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
    return whole({placeInQt().topLeft() + pixels.topLeft() / mapping_.scale,
                  pixels.size() / mapping_.scale});
}

QAccessibleInterface* LayerPanelWindow::accessibleRoot() const {
    return accessible_ ? accessible_->root() : nullptr;
}

}
