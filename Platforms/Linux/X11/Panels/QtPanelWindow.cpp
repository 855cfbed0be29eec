#include "Panels/QtPanelWindow.hpp"

#include "Connection/X11Connection.hpp"
#include "Displays/MenuPlacement.hpp"
#include "Displays/QtCoordinates.hpp"
#include "Displays/RandrScreens.hpp"
#include "Panels/Context/DesktopWatch.hpp"
#include "Panels/Keeping/DockHints.hpp"
#include "Platform/PanelTitles.hpp"
#include "Toolkit/Appearance.hpp"

#include <QEnterEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPlatformSurfaceEvent>
#include <QScreen>
#include <cmath>
#include <utility>

namespace vireline::x11 {

QtPanelWindow::QtPanelWindow(const PanelContext& context, std::uint32_t displayID,
                             const Rect& frame, PanelWindowListener& listener)
    : context_(context)
    , displayID_(displayID)
    , listener_(listener)
    , pointer_(context_, listener, *this)
    , geometry_(context.screens.display(displayID).value_or(Display{}), frame)
    , keptBy_(context.desktop.misplacesDocks() ? Keeper::program : Keeper::windowManager)
    , accessible_(std::make_unique<xdg::AccessibleDock>(
          xdg::DockAccess{*this, listener, accessiblePanelTitle(context.screens.nameOf(displayID)),
                          [this](const Rect& view) { return placeOnScreen(view); }}))
    , frames_(lifetime_.guard([this] { showFrame(); })) {
    setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    QSurfaceFormat format;
    format.setAlphaBufferSize(8);
    setFormat(format);
    setTitle(QString::fromStdString(panelTitle(displayID)));
    pointer_.setViewArea(geometry_.viewArea());
    observe();
    relayout();
    if (QScreen* const screen = context.screens.qtScreen(displayID)) {
        setScreen(screen);
        const PixelRect& target = geometry_.target();
        const QRect pixels{target.x, target.y, target.width, target.height};
        setGeometry(QtCoordinates::rect(*screen, geometry_.display(), pixels));
    }
    create();
    keeper_->place().set(geometry_.target());
}

void QtPanelWindow::observe() {
    QObject::connect(this, &QWindow::visibleChanged, this,
                     [this](bool isShown) { accessible_->setShown(isShown); });
    subscriptions_.push_back(context_.connection.observe(
        [this](const xcb_generic_event_t& event) { handleNative(event); }));
    subscriptions_.push_back(context_.screens.observeParameters([this] { displaysChanged(); }));
    subscriptions_.push_back(context_.desktop.observeOffer([this] { lookChanged(); }));
    subscriptions_.push_back(context_.appearance.observe([this] { lookChanged(); }));
    subscriptions_.push_back(context_.desktop.observeWindowManager([this] {
        if (isVisible() && keeper_)
            keeper_->windowManagerChanged();
    }));
}

QtPanelWindow::~QtPanelWindow() {
    menu_.reset();
    destroy();
}

void QtPanelWindow::setFrame(const Rect& frame, bool animate) {
    geometry_.setDisplay(context_.screens.display(displayID_).value_or(geometry_.display()));
    geometry_.setFrame(frame, animate);
    pointer_.setViewArea(geometry_.viewArea());
    updateSoon();
}

void QtPanelWindow::setHostedFrame(const Rect& frame) {
    geometry_.setHostedFrame(frame);
    pointer_.setViewArea(geometry_.viewArea());
    updateSoon();
}

void QtPanelWindow::present(const Scene& scene) {
    if (picture_) {
        picture_->setScene(scene);
    } else {
        scene_ = scene;
    }
    accessible_->refresh();
    updateSoon();
}

void QtPanelWindow::orderFrontRegardless() {
    if (window_ == XCB_NONE)
        create();
    relayout();
    keeper_->place().set(geometry_.target());
    if (isVisible()) {
        // A window that the program keeps in place needs no raising.
        if (keptBy_ == Keeper::windowManager)
            raise();
        return;
    }
    show();
}

void QtPanelWindow::show() {
    DockHints::apply(context_.connection, window_, displayID_);
    picture_->prepareToAppear();
    setVisible(true);
    DockHints::applySizeHints(context_.connection, window_);
    keeper_->place().set(geometry_.target());
    keeper_->shown();
    updateSoon();
}

void QtPanelWindow::orderOut() {
    menu_.reset();
    if (keeper_)
        keeper_->hidden();
    setVisible(false);
    if (drops_)
        drops_->leave();
    pointer_.hidden();
}

/// If only the display's pixels changed while its frame in points is the same, the dock stays as
/// planned; otherwise a new plan will follow.
void QtPanelWindow::displaysChanged() {
    const auto display = context_.screens.display(displayID_);
    if (!display || *display == geometry_.display() ||
        DisplayGeometry::frame(*display) != DisplayGeometry::frame(geometry_.display()))
        return;
    geometry_.setDisplay(*display);
    updateSoon();
}

void QtPanelWindow::lookChanged() {
    if (picture_)
        picture_->lookChanged();
    updateSoon();
}

void QtPanelWindow::handleNative(const xcb_generic_event_t& event) {
    if (keeper_)
        keeper_->handle(event);
}

/// Redraws at once, so that the content stays in place on the display while the window moves.
void QtPanelWindow::placeChanged() {
    updateIsDue_ = true;
    update();
}

bool QtPanelWindow::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::PlatformSurface:
        if (static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
            QPlatformSurfaceEvent::SurfaceCreated) {
            surfaceCreated();
        } else {
            surfaceDestroyed();
        }
        break;
    case QEvent::Expose:
        // Qt sends this after it has collected a series of the server's expose events.
        if (picture_ && isExposed())
            picture_->exposed();
        break;
    case QEvent::Enter:
        pointer_.entered(pixel(static_cast<QEnterEvent*>(event)->position()));
        break;
    case QEvent::Leave:
        pointer_.left();
        break;
    case QEvent::Close:
        // A dock is closed only together with its display, not by a window manager.
        event->ignore();
        return true;
    default:
        break;
    }
    return QWindow::event(event);
}

/// Handles the server's events for this window before Qt does.
bool QtPanelWindow::nativeEvent(const QByteArray& type, void* message, qintptr* /*result*/) {
    if (type != "xcb_generic_event_t" || !drops_)
        return false;
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    return eventType(event) == XCB_CLIENT_MESSAGE &&
           drops_->handle(as<xcb_client_message_event_t>(event));
}

void QtPanelWindow::mouseMoveEvent(QMouseEvent* event) {
    pointer_.moved(pixel(event->position()));
}

void QtPanelWindow::mousePressEvent(QMouseEvent* event) {
    if (menu_)
        return menu_->close();
    pointer_.pressed(event->button(), pixel(event->position()));
}

void QtPanelWindow::mouseReleaseEvent(QMouseEvent* event) {
    pointer_.released(event->button(), pixel(event->position()));
}

/// Keys arrive only while a drag has grabbed the keyboard.
void QtPanelWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        pointer_.cancelled();
}

void QtPanelWindow::surfaceCreated() {
    window_ = static_cast<xcb_window_t>(winId());
    picture_ = std::make_unique<PanelPresenter>(context_, window_);
    picture_->setScene(scene_);
    pointer_.setWindow(window_);
    keep();
    drops_ =
        std::make_unique<XdndTarget>(context_.connection, window_, listener_, [this](int x, int y) {
            return viewPosition(QPointF(x, y) - corner());
        });
    context_.connection.selectInput(window_,
                                    XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    DockHints::apply(context_.connection, window_, displayID_);
    lookChanged();
}

void QtPanelWindow::surfaceDestroyed() {
    drops_.reset();
    keeper_.reset();
    if (picture_)
        scene_ = picture_->scene();
    picture_.reset();
    pointer_.setWindow(XCB_NONE);
    window_ = XCB_NONE;
}

/// The keeper's requests are queued, because they may destroy it.
void QtPanelWindow::keep() {
    keeper_ = std::make_unique<DockKeeper>(context_, window_, displayID_, keptBy_);
    keeper_->onPlaceChanged = [this] { placeChanged(); };
    keeper_->onManaged = [this] { picture_->managed(); };
    keeper_->onKeeperChange = [this](Keeper keeper) {
        QMetaObject::invokeMethod(this, lifetime_.guard([this, keeper] { changeKeeper(keeper); }),
                                  Qt::QueuedConnection);
    };
    keeper_->onLost = [this] {
        setVisible(false);
        setVisible(true);
    };
}

/// Window managers disagree about what happens to a window when it is withdrawn from or returned to
/// their control, so a new one is created instead.
void QtPanelWindow::changeKeeper(Keeper keeper) {
    if (keptBy_ == keeper || !keeper_)
        return;
    keptBy_ = keeper;
    const bool isShown = isVisible();
    destroy();
    create();
    relayout();
    if (isShown)
        show();
}

/// Coalesces all changes within one turn of the event loop.
void QtPanelWindow::updateSoon() {
    if (std::exchange(updateIsDue_, true) || isInFrame_)
        return;
    QMetaObject::invokeMethod(this, lifetime_.guard([this] { update(); }), Qt::QueuedConnection);
}

void QtPanelWindow::update() {
    if (std::exchange(updateIsDue_, false) && picture_) {
        relayout();
        picture_->update(isVisible());
        // After the regions, which move along with the window.
        if (keeper_->place().asked() != geometry_.target())
            keeper_->place().set(geometry_.target());
        context_.connection.flush();
    }
    pointer_.follow();
}

/// Whatever is presented for a frame is shown in that frame.
void QtPanelWindow::showFrame() {
    const bool wasAsked = std::exchange(isFrameAsked_, false);
    isSampling_ = true;
    pointer_.sample();
    isSampling_ = false;
    if (std::exchange(isFrameAsked_, false) || wasAsked) {
        isInFrame_ = true;
        listener_.frameDue();
        isInFrame_ = false;
    }
    if (!isFrameAsked_ && geometry_.endAnimation())
        updateIsDue_ = true;
    update();
}

/// Keeps the view at its planned position on the display, wherever the window currently is.
void QtPanelWindow::relayout() {
    geometry_.aim();
    const PixelRect& target = geometry_.target();
    const PixelRect drawn = drawnPlace();
    const auto layout = geometry_.layOut(drawn);
    if (!picture_)
        return;
    const bool isToMove = keeper_ && keeper_->place().isBoundFor(target);
    picture_->setLayout(
        layout, {.asked = {target.width, target.height},
                 .lag = isToMove ? QPoint{drawn.x - target.x, drawn.y - target.y} : QPoint{}});
}

PixelRect QtPanelWindow::drawnPlace() const {
    return geometry_.drawnPlace(keeper_ ? keeper_->place().actual() : std::nullopt);
}

QPointF QtPanelWindow::pixel(QPointF position) const {
    return position * devicePixelRatio();
}

bool QtPanelWindow::takesPointer(QPointF pixel) const {
    const auto whole = [](double position) { return static_cast<int>(std::floor(position)); };
    return picture_ && picture_->takesPointer(whole(pixel.x()), whole(pixel.y()));
}

QRect QtPanelWindow::placeOnScreen(const Rect& view) const {
    const QRectF pixels = geometry_.mapping().pixels(view).translated(corner());
    return screen() != nullptr ? QtCoordinates::rect(*screen(), geometry_.display(), pixels)
                               : QRect{};
}

QAccessibleInterface* QtPanelWindow::accessibleRoot() const {
    return accessible_ ? accessible_->root() : nullptr;
}

void QtPanelWindow::requestFrame() {
    isFrameAsked_ = true;
    if (!isSampling_)
        requestTick();
}

void QtPanelWindow::requestTick() {
    if (const QScreen* const shownOn = screen())
        frames_.setRefreshRate(shownOn->refreshRate());
    frames_.request();
}

void QtPanelWindow::watchForCancel(bool watches) {
    setKeyboardGrabEnabled(watches);
}

void QtPanelWindow::popUpMenu(const Menu& menu, const MenuPlace& place,
                              std::function<void()> onClose) {
    QScreen* const screen = context_.screens.qtScreen(displayID_);
    if (screen == nullptr || menu.entries.empty())
        return onClose();
    if (menu_)
        menu_->end();
    const QPointF rootPixel = geometry_.mapping().toPixels(place.at) + corner();
    const QPoint at = QtCoordinates::position(*screen, geometry_.display(), rootPixel);
    pointer_.menuOpened();
    const MenuPlace onScreen{{static_cast<double>(at.x()), static_cast<double>(at.y())},
                             place.side};
    menu_ = std::make_unique<xdg::PopUpMenu>(
        menu,
        [screen, &onScreen](QMenu& filled) { MenuPlacement::open(filled, *screen, onScreen); },
        [this, onClose = std::move(onClose)](const MenuAction& chosen) {
            menu_.reset();
            pointer_.menuClosed();
            // From here on this window may be gone.
            onClose();
            if (chosen)
                chosen();
        });
}

}
