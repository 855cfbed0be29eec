#include "Panels/QtPanelWindow.hpp"

#include "Displays/RandrScreens.hpp"
#include "Panels/Appearance.hpp"
#include "Panels/DesktopWatch.hpp"
#include "Panels/DockHints.hpp"
#include "Panels/OpaqueOutline.hpp"
#include "Panels/SceneDamage.hpp"
#include "Panels/ScenePainter.hpp"
#include "X11/X11Connection.hpp"

#include <QEnterEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPlatformSurfaceEvent>
#include <QPolygon>
#include <QScreen>
#include <cmath>
#include <utility>

namespace vireline::x11 {
namespace {

/// Milliseconds between two looks at a pointer that somebody else holds.
constexpr int doubtInterval = 250;

xcb_rectangle_t xcbRectangle(const QRect& rect) {
    return {static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
            static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height())};
}

/// Qt's coordinates of a pixel: a screen's corner keeps its place in pixels, inside it they scale.
QPoint qtPosition(const QScreen& screen, const Display& display, QPointF rootPixel) {
    const QPointF inside = rootPixel - QPointF(display.pixels.x, display.pixels.y);
    return (screen.geometry().topLeft() + inside / screen.devicePixelRatio()).toPoint();
}

}

QtPanelWindow::QtPanelWindow(const PanelContext& context, std::uint32_t displayID,
                             const Rect& frame, PanelWindowListener& listener)
    : context_(context)
    , displayID_(displayID)
    , pointer_(listener)
    , display_(context.screens.display(displayID).value_or(Display{}))
    , frame_(frame)
    , hostedFrame_{0, 0, frame.width, frame.height} {
    setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint);
    QSurfaceFormat format;
    format.setAlphaBufferSize(8);
    setFormat(format);
    setTitle(QStringLiteral("Vireline dock #%1").arg(displayID));
    doubt_.setInterval(doubtInterval);
    QObject::connect(&doubt_, &QTimer::timeout, this, [this] { pointerLeft(); });

    pointer_.setViewSize(hostedFrame_.size());
    observe();
    relayout();
    if (QScreen* const screen = context.screens.qtScreen(displayID)) {
        setScreen(screen);
        const QPoint corner = qtPosition(*screen, display_, QPointF(target_.x, target_.y));
        setGeometry({corner, (QSizeF(target_.width, target_.height) / screen->devicePixelRatio())
                                 .toSize()
                                 .expandedTo({1, 1})});
    }
    create();
    place_->set(target_);
}

void QtPanelWindow::observe() {
    subscriptions_.push_back(context_.connection.observe(
        [this](const xcb_generic_event_t& event) { handleNative(event); }));
    subscriptions_.push_back(context_.screens.observeParameters([this] { displaysChanged(); }));
    subscriptions_.push_back(context_.desktop.observeOffer([this] { lookChanged(); }));
    subscriptions_.push_back(context_.appearance.observe([this] { lookChanged(); }));
    subscriptions_.push_back(
        context_.desktop.observeWindowManager([this] { windowManagerChanged(); }));
}

QtPanelWindow::~QtPanelWindow() {
    menu_.reset();
    destroy();
}

void QtPanelWindow::setFrame(const Rect& frame, bool /*animate*/) {
    display_ = context_.screens.display(displayID_).value_or(display_);
    frame_ = frame;
    updateSoon();
}

void QtPanelWindow::setHostedFrame(const Rect& frame) {
    hostedFrame_ = frame;
    pointer_.setViewSize(frame.size());
    updateSoon();
}

void QtPanelWindow::present(const Scene& scene) {
    damage_ += SceneDamage::between(scene_, scene, mapping_);
    scene_ = scene;
    updateSoon();
}

void QtPanelWindow::orderFrontRegardless() {
    if (window_ == XCB_NONE)
        create();
    relayout();
    place_->set(target_);
    if (isVisible())
        return raise();
    DockHints::apply(context_.connection, window_, displayID_);
    paint();
    surface_->beginBackground(base());
    hasBackground_ = true;
    setVisible(true);
    DockHints::applySizeHints(context_.connection, window_);
    place_->set(target_);
    updateSoon();
}

void QtPanelWindow::orderOut() {
    menu_.reset();
    setVisible(false);
    pointer_.hidden();
    doubt_.stop();
}

/// Only a display that has kept its place in points while its pixels changed leaves the dock where
/// it is planned; otherwise a new plan is on its way.
void QtPanelWindow::displaysChanged() {
    const auto display = context_.screens.display(displayID_);
    if (!display || *display == display_ ||
        DisplayGeometry::frame(*display) != DisplayGeometry::frame(display_))
        return;
    display_ = *display;
    updateSoon();
}

void QtPanelWindow::lookChanged() {
    damage_ = QRect{0, 0, target_.width, target_.height};
    updateSoon();
}

void QtPanelWindow::windowManagerChanged() {
    if (!isVisible() || !place_)
        return;
    place_->startOver();
    DockHints::assertState(context_.connection, window_);
}

void QtPanelWindow::handleNative(const xcb_generic_event_t& event) {
    constexpr std::uint8_t sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_EXPOSE: {
        const auto& exposed = reinterpret_cast<const xcb_expose_event_t&>(event);
        if (exposed.window != window_)
            break;
        // All of it: Qt takes the other events of the same exposure for itself.
        upload(surface_ ? QRegion{surface_->image().rect()} : QRegion{});
        if (surface_ && std::exchange(hasBackground_, false))
            surface_->endBackground();
        break;
    }
    case XCB_CONFIGURE_NOTIFY: {
        const auto& configured = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        if (configured.window == window_ && place_)
            place_->configured(configured);
        break;
    }
    default:
        break;
    }
}

bool QtPanelWindow::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::PlatformSurface:
        if (static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
            QPlatformSurfaceEvent::SurfaceCreated) {
            surfaceCreated();
        } else {
            place_.reset();
            shape_.reset();
            surface_.reset();
            window_ = XCB_NONE;
        }
        break;
    case QEvent::Enter: {
        const QPointF position = static_cast<QEnterEvent*>(event)->position();
        pointer_.entered(viewPosition(position));
        break;
    }
    case QEvent::Leave:
        pointerLeft();
        break;
    case QEvent::Close:
        // A dock goes when its display goes, not when a window manager asks it to.
        event->ignore();
        return true;
    default:
        break;
    }
    return QWindow::event(event);
}

void QtPanelWindow::mouseMoveEvent(QMouseEvent* event) {
    pointer_.moved(viewPosition(event->position()));
}

void QtPanelWindow::mousePressEvent(QMouseEvent* event) {
    if (menu_)
        return menu_->close();
    const Point position = viewPosition(event->position());
    if (event->button() == Qt::LeftButton) {
        pointer_.pressed(position);
    } else if (event->button() == Qt::RightButton) {
        pointer_.secondaryPressed(position);
    }
}

void QtPanelWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        pointer_.released(viewPosition(event->position()), takesPointer(event->position()));
}

/// Keys arrive only while a drag holds the keyboard.
void QtPanelWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        pointer_.cancelled();
}

void QtPanelWindow::surfaceCreated() {
    window_ = static_cast<xcb_window_t>(winId());
    surface_ = std::make_unique<PanelSurface>(context_.connection, window_);
    shape_ = std::make_unique<WindowShape>(context_.connection, window_);
    place_ = std::make_unique<WindowPlace>(context_.connection, window_, displayID_);
    context_.connection.selectInput(window_,
                                    XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    DockHints::apply(context_.connection, window_, displayID_);
    lookChanged();
}

/// Everything that changes within one turn of the loop is shown at once.
void QtPanelWindow::updateSoon() {
    if (std::exchange(updateIsDue_, true))
        return;
    QMetaObject::invokeMethod(this, lifetime_.guard([this] { update(); }), Qt::QueuedConnection);
}

void QtPanelWindow::update() {
    updateIsDue_ = false;
    if (!surface_)
        return;
    relayout();
    if (place_->asked() != target_)
        place_->set(target_);
    paint();
}

void QtPanelWindow::relayout() {
    target_ = DisplayGeometry::toPixels(display_, frame_);
    const PixelRect view = DisplayGeometry::viewPixels(display_, frame_, hostedFrame_);
    const ViewMapping mapping{{view.x, view.y}, display_.scale};
    if (mapping == mapping_)
        return;
    mapping_ = mapping;
    damage_ = QRect{0, 0, target_.width, target_.height};
}

void QtPanelWindow::paint() {
    if (target_.width != surface_->image().width() || target_.height != surface_->image().height())
        damage_ = QRect{0, 0, target_.width, target_.height};
    applyInput();
    if (damage_.isEmpty())
        return;
    surface_->resize({target_.width, target_.height});
    const QRegion damage = std::exchange(damage_, {}) & QRect{0, 0, target_.width, target_.height};
    QPainter painter{&surface_->image()};
    painter.setClipRegion(damage);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(damage.boundingRect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (backdrop() == Backdrop::opaque) {
        for (const QRect& rect : uncoveredByView()) {
            painter.fillRect(rect, colors().glassBottom);
        }
    }
    ScenePainter::paint(painter, scene_, mapping_, colors(), damage.boundingRect());
    painter.end();
    applyBackdrop();
    upload(damage);
}

void QtPanelWindow::upload(const QRegion& region) {
    if (!surface_ || !isVisible())
        return;
    surface_->upload(region, base());
}

std::optional<std::uint32_t> QtPanelWindow::base() const {
    return backdrop() == Backdrop::opaque ? std::optional{colors().labelGlass.rgba()}
                                          : std::nullopt;
}

void QtPanelWindow::applyInput() {
    std::optional<PixelRect> region;
    if (scene_.inputRegion) {
        const QRect pixels = mapping_.pixels(*scene_.inputRegion).toAlignedRect() &
                             QRect{0, 0, target_.width, target_.height};
        region = PixelRect{pixels.x(), pixels.y(), pixels.width(), pixels.height()};
    }
    shape_->setInput(region);
    context_.connection.flush();
}

void QtPanelWindow::applyBackdrop() {
    const Backdrop kind = backdrop();
    shape_->setBounding(kind == Backdrop::opaque
                            ? std::optional{OpaqueOutline::rectangles(surface_->image())}
                            : std::nullopt);
    shape_->setBlurred(kind == Backdrop::blurred ? blurRegion() : std::vector<xcb_rectangle_t>{});
}

Backdrop QtPanelWindow::backdrop() const {
    const DesktopOffer& offer = context_.desktop.offer();
    if (!offer.isComposited || !surface_->hasAlpha())
        return Backdrop::opaque;
    return offer.blursBehind ? Backdrop::blurred : Backdrop::translucent;
}

DockColors QtPanelWindow::colors() const {
    return DockColors::of(context_.appearance.isDark(), backdrop());
}

/// What a dock that takes the whole window has besides its view: the gap to the display's edge. In
/// an opaque window only what is painted takes the pointer, and it must not get lost there.
QRegion QtPanelWindow::uncoveredByView() const {
    if (scene_.inputRegion)
        return {};
    const QRect view =
        ViewMappings::snapped(mapping_.pixels({0, 0, hostedFrame_.width, hostedFrame_.height}));
    return QRegion{0, 0, target_.width, target_.height} - view;
}

std::vector<xcb_rectangle_t> QtPanelWindow::blurRegion() const {
    QRegion region;
    for (const QPainterPath& outline : ScenePainter::glassOutlines(scene_, mapping_)) {
        region += QRegion{outline.toFillPolygon().toPolygon()};
    }
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& rect : region) {
        rectangles.push_back(xcbRectangle(rect));
    }
    return rectangles;
}

Point QtPanelWindow::viewPosition(QPointF position) const {
    return mapping_.toView(position * devicePixelRatio());
}

bool QtPanelWindow::takesPointer(QPointF position) const {
    const QPointF pixel = position * devicePixelRatio();
    const int x = static_cast<int>(std::floor(pixel.x()));
    const int y = static_cast<int>(std::floor(pixel.y()));
    return PixelRect{0, 0, target_.width, target_.height}.contains(x, y) &&
           (!shape_ || shape_->takesPointer(x, y));
}

PointerTracker::Whereabouts QtPanelWindow::whereabouts() const {
    if (window_ == XCB_NONE)
        return {};
    xcb_connection_t* const x = context_.connection.get();
    const auto ownCookie = xcb_query_pointer(x, window_);
    const auto rootCookie = xcb_query_pointer(x, context_.connection.root());
    const auto treeCookie = xcb_query_tree(x, window_);
    const Owned<xcb_query_pointer_reply_t> own{xcb_query_pointer_reply(x, ownCookie, nullptr)};
    const Owned<xcb_query_pointer_reply_t> top{xcb_query_pointer_reply(x, rootCookie, nullptr)};
    const Owned<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(x, treeCookie, nullptr)};
    if (!own || !top || !tree || own->same_screen == 0)
        return {};
    // Another window may lie over this one there. A window manager that frames docks does so once.
    const bool isTopmost = top->child == window_ || top->child == tree->parent;
    const bool takes =
        shape_ && shape_->takesPointer(own->win_x, own->win_y) &&
        PixelRect{0, 0, target_.width, target_.height}.contains(own->win_x, own->win_y);
    return {.isOverWindow = isTopmost && takes,
            .isPrimaryHeld = (own->mask & XCB_BUTTON_MASK_1) != 0,
            .position = mapping_.toView(QPointF(own->win_x, own->win_y))};
}

/// Also looked at again for as long as somebody else holds the pointer.
void QtPanelWindow::pointerLeft() {
    pointer_.left(whereabouts());
    if (pointer_.isInDoubt()) {
        doubt_.start();
    } else {
        doubt_.stop();
    }
}

Timer QtPanelWindow::requestFrame(std::function<void()> onFrame) {
    if (const QScreen* const shownOn = context_.screens.qtScreen(displayID_))
        frames_.setRefreshRate(shownOn->refreshRate());
    return frames_.request(std::move(onFrame));
}

void QtPanelWindow::watchForCancel(bool watches) {
    setKeyboardGrabEnabled(watches);
}

void QtPanelWindow::popUpMenu(const Menu& menu, Point at, MenuClosed onClose) {
    QScreen* const screen = context_.screens.qtScreen(displayID_);
    if (screen == nullptr || menu.entries.empty())
        return onClose(std::nullopt);
    if (menu_)
        menu_->end();
    const QPointF rootPixel = mapping_.toPixels(at) + QPointF(target_.x, target_.y);
    pointer_.menuOpened();
    menu_ = std::make_unique<PopUpMenu>(
        menu, *screen, qtPosition(*screen, display_, rootPixel),
        [this, onClose = std::move(onClose)](std::optional<std::size_t> chosen) {
            menuClosed(chosen, onClose);
        });
}

void QtPanelWindow::menuClosed(std::optional<std::size_t> chosen, const MenuClosed& onClose) {
    // The menu owns the callback, and what it does may end this window.
    const MenuClosed tell = onClose;
    menu_.reset();
    pointer_.menuClosed(whereabouts());
    tell(chosen);
}

}
