#include "Connection/OwnConnection.hpp"

#include <poll.h>
#include <wayland-client.h>

#include <QDebug>
#include <QMetaObject>
#include <utility>

namespace vireline::wayland {

std::unique_ptr<OwnConnection> OwnConnection::open() {
    Proxy<wl_display> display{wl_display_connect(nullptr)};
    return display ? std::make_unique<OwnConnection>(std::move(display)) : nullptr;
}

OwnConnection::OwnConnection(Proxy<wl_display> display)
    : display_(std::move(display))
    , globals_(display_.get())
    , readable_(wl_display_get_fd(display_.get()), QSocketNotifier::Read) {
    QObject::connect(&readable_, &QSocketNotifier::activated, &readable_, [this] { read(); });
    pause_.setSingleShot(true);
    pause_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&pause_, &QTimer::timeout, &readable_, [this] {
        readable_.setEnabled(true);
        read();
    });
    // Listing the globals may have read more than those.
    QMetaObject::invokeMethod(&readable_, [this] { read(); }, Qt::QueuedConnection);
}

void OwnConnection::pause(std::chrono::milliseconds duration) {
    readable_.setEnabled(false);
    pause_.start(duration);
}

void OwnConnection::shortenPause(std::chrono::milliseconds longest) {
    if (pause_.isActive() && pause_.remainingTimeAsDuration() > longest)
        pause_.start(longest);
}

void OwnConnection::read() {
    if (!readWhatHasArrived()) {
        readable_.setEnabled(false);
        pause_.stop();
        qCritical("The Wayland connection of the docks broke: error %d",
                  wl_display_get_error(display_.get()));
        return;
    }
    readObservers_.notify();
    globals_.flush();
}

bool OwnConnection::readWhatHasArrived() {
    wl_display* const display = display_.get();
    while (wl_display_prepare_read(display) != 0) {
        if (wl_display_dispatch_pending(display) < 0)
            return false;
    }
    wl_display_flush(display);
    pollfd socket{.fd = wl_display_get_fd(display), .events = POLLIN, .revents = 0};
    if (poll(&socket, 1, 0) <= 0) {
        wl_display_cancel_read(display);
        return true;
    }
    return wl_display_read_events(display) == 0 && wl_display_dispatch_pending(display) >= 0;
}

}
