#include "ClientWindows/FirstEvents.hpp"

#include <wayland-client.h>

namespace vireline::wayland {

FirstEvents::FirstEvents(wl_display* display)
    : display_(display), queue_(wl_display_create_queue(display)) {}

FirstEvents::~FirstEvents() {
    release();
    // Qt reads the connection in a thread of its own, which may have queued more meanwhile; their
    // listeners may add further objects.
    wl_display_dispatch_queue_pending(display_, queue_);
    release();
    wl_event_queue_destroy(queue_);
}

void FirstEvents::add(wl_proxy* object) {
    wl_proxy_set_queue(object, queue_);
    objects_.push_back(object);
}

void FirstEvents::remove(const wl_proxy* object) {
    std::erase(objects_, object);
}

void FirstEvents::wait() {
    wl_display_roundtrip_queue(display_, queue_);
}

void FirstEvents::release() {
    for (wl_proxy* const object : objects_)
        wl_proxy_set_queue(object, nullptr);
}

}
