#include "Panels/ScreenCover.hpp"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPlatformSurfaceEvent>
#include <QScreen>
#include <utility>

namespace vireline::wayland {

ScreenCover::ScreenCover(const LayerShellContext& context, QScreen& screen, Events events)
    : events_(std::move(events)) {
    LayerRole::prepare(*this);
    role_ = std::make_unique<LayerRole>(
        context, *this, screen, QRect{{0, 0}, screen.geometry().size()},
        LayerRole::Events{[this] { configured(); }, [this] { events_.closed(); }});
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
