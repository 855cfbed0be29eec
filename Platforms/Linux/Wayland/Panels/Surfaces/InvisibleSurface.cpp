#include "Panels/Surfaces/InvisibleSurface.hpp"

#include "Connection/QtNative.hpp"
#include "Panels/Surfaces/LayerShellContext.hpp"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPlatformSurfaceEvent>
#include <QScreen>
#include <utility>

namespace vireline::wayland {

InvisibleSurface::InvisibleSurface(const LayerShellContext& context, QScreen& screen,
                                   const QRect& place, Events events)
    : events_(std::move(events)) {
    // The role is ours, and Qt gives windows with that hint none.
    setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint);
    QSurfaceFormat translucent;
    translucent.setAlphaBufferSize(8);
    setFormat(translucent);
    setScreen(&screen);
    setGeometry(place.translated(screen.geometry().topLeft()));
    create();
    role_ = std::make_unique<LayerRole>(
        context.connection, *context.shell, *QtNative::surface(*this), QtNative::output(screen),
        place, LayerRole::Events{[this] { configured(); }, [this] { closed(); }});
}

/// Qt 6.4 destroys the surface of a visible window before it sends `SurfaceAboutToBeDestroyed`.
InvisibleSurface::~InvisibleSurface() {
    role_.reset();
    destroy();
}

void InvisibleSurface::configured() {
    if (!isRetired_)
        setVisible(true);
}

/// sway gives the keyboard only to a surface that it shows already, and during a popup's grab to
/// none.
void InvisibleSurface::shown() {
    isShown_ = true;
    if (wantsKeyboard_ && role_)
        role_->takeKeyboard();
    if (!isRetired_ && role_)
        events_.shown();
}

void InvisibleSurface::closed() const {
    if (!isRetired_)
        events_.closed();
}

InvisibleSurface::Retiring InvisibleSurface::make(const LayerShellContext& context, QScreen& screen,
                                                  const QRect& place, Events events) {
    return Retiring{
        std::make_unique<InvisibleSurface>(context, screen, place, std::move(events)).release()};
}

void InvisibleSurface::retire() {
    isRetired_ = true;
    deleteLater();
}

void InvisibleSurface::takeKeyboard() {
    wantsKeyboard_ = true;
    if (LayerRole* const shown = role())
        shown->takeKeyboard();
}

bool InvisibleSurface::event(QEvent* event) {
    // The surface's role must go before it does, after those of popups.
    if (role_ && event->type() == QEvent::PlatformSurface &&
        static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
            QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed) {
        closed();
        role_.reset();
    }
    return (!isRetired_ && report(*event)) || QRasterWindow::event(event);
}

/// Returns whether that was all there is to do about the event.
bool InvisibleSurface::report(QEvent& event) {
    switch (event.type()) {
    case QEvent::Enter:
        events_.pointed(*this, static_cast<QEnterEvent&>(event).globalPosition().toPoint());
        return false;
    case QEvent::MouseButtonPress:
        events_.pressed();
        return true;
    case QEvent::KeyPress:
        events_.keyPressed(static_cast<QKeyEvent&>(event));
        return true;
    default:
        return false;
    }
}

void InvisibleSurface::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect{{0, 0}, size()}, Qt::transparent);
    // Qt commits this after the event.
    if (!std::exchange(hasContent_, true))
        QMetaObject::invokeMethod(this, [this] { shown(); }, Qt::QueuedConnection);
}

}
