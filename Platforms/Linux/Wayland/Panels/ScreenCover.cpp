#include "Panels/ScreenCover.hpp"

#include "Connection/QtNative.hpp"
#include "Panels/LayerShellContext.hpp"

#include <wayland-client.h>

#include <QEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPlatformSurfaceEvent>
#include <QScreen>
#include <utility>

namespace vireline::wayland {

/// Nothing may be painted before the compositor has configured the role.
ScreenCover::ScreenCover(const LayerShellContext& context, QScreen& screen, Events events)
    : context_(context), events_(std::move(events)) {
    setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint);
    QSurfaceFormat format;
    format.setAlphaBufferSize(8);
    setFormat(format);
    setScreen(&screen);
    setGeometry(screen.geometry());
    create();
    wl_surface* const surface = QtNative::surface(*this);
    role_ = std::make_unique<LayerRole>(
        *context.shell, *surface, QtNative::output(screen),
        LayerRole::Events{[this] { configured(); }, [this] { events_.closed(); }});
    role_->setPlace({{0, 0}, screen.geometry().size()});
    wl_surface_commit(surface);
    context.connection.flush();
}

/// Qt 6.4 destroys the surface of a visible window before it sends `SurfaceAboutToBeDestroyed`.
ScreenCover::~ScreenCover() {
    role_.reset();
    destroy();
}

void ScreenCover::configured() {
    if (!std::exchange(isShown_, true))
        setVisible(true);
}

void ScreenCover::takeKeyboard() {
    role_->setTakesKeyboard(true);
    wl_surface_commit(QtNative::surface(*this));
    context_.connection.flush();
}

bool ScreenCover::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::PlatformSurface:
        // The surface's role must go before it does, after those of popups.
        if (role_ && static_cast<QPlatformSurfaceEvent*>(event)->surfaceEventType() ==
                         QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed) {
            events_.closed();
            role_.reset();
        }
        break;
    case QEvent::Enter:
        events_.pointed(*this, static_cast<QEnterEvent*>(event)->globalPosition().toPoint());
        break;
    case QEvent::MouseButtonPress:
        events_.pressed();
        return true;
    case QEvent::KeyPress:
        events_.keyPressed(*static_cast<QKeyEvent*>(event));
        return true;
    default:
        break;
    }
    return QRasterWindow::event(event);
}

void ScreenCover::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter{this};
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect{{0, 0}, size()}, Qt::transparent);
}

}
