#include "Wayland/Fakes/FakeSeat.hpp"

#include <wayland-client.h>
#include <wayland-server-core.h>

namespace vireline::wayland {
namespace {

/// The events by their place in the protocol.
enum SeatEvent : std::uint32_t {
    seatCapabilities = 0,
    pointerEnter = 0,
    pointerLeave = 1,
    pointerMotion = 2,
    pointerButton = 3,
    pointerFrame = 5,
    touchDownEvent = 0,
    touchUpEvent = 1,
    touchMotion = 2,
    touchFrame = 3,
    touchCancel = 4,
};

constexpr std::uint32_t anyTime = 1000;

wl_fixed_t fixed(double length) {
    return wl_fixed_from_double(length);
}

}

FakeSeat::FakeSeat(FakeCompositor& compositor, std::uint32_t capabilities)
    : compositor_(compositor), capabilities_(capabilities) {
    log_.onRequest = [this](const RequestLog::Request& request) {
        if (request.name == "get_pointer")
            pointer_ = request.created;
        if (request.name == "get_touch")
            touch_ = request.created;
    };
    compositor.offer(wl_seat_interface, 5, [this](wl_resource* seat) {
        seat_ = seat;
        log_.watch(seat);
        wl_resource_post_event(seat, seatCapabilities, capabilities_);
    });
}

void FakeSeat::setCapabilities(std::uint32_t capabilities) {
    compositor_.send([&] {
        capabilities_ = capabilities;
        wl_resource_post_event(seat_, seatCapabilities, capabilities);
    });
}

void FakeSeat::withdraw() {
    compositor_.withdraw(wl_seat_interface);
    compositor_.send([] {});
}

wl_resource* FakeSeat::serverSide(wl_surface* surface) const {
    return wl_client_get_object(wl_resource_get_client(seat_),
                                wl_proxy_get_id(reinterpret_cast<wl_proxy*>(surface)));
}

void FakeSeat::enter(wl_surface* surface, double x, double y) {
    wl_resource_post_event(pointer_, pointerEnter, ++serial_, serverSide(surface), fixed(x),
                           fixed(y));
    wl_resource_post_event(pointer_, pointerFrame);
}

void FakeSeat::leave(wl_surface* surface) {
    wl_resource_post_event(pointer_, pointerLeave, ++serial_, serverSide(surface));
    wl_resource_post_event(pointer_, pointerFrame);
}

void FakeSeat::move(double x, double y) {
    wl_resource_post_event(pointer_, pointerMotion, anyTime, fixed(x), fixed(y));
    wl_resource_post_event(pointer_, pointerFrame);
}

void FakeSeat::press(std::uint32_t button) {
    wl_resource_post_event(pointer_, pointerButton, ++serial_, anyTime, button,
                           std::uint32_t{WL_POINTER_BUTTON_STATE_PRESSED});
    wl_resource_post_event(pointer_, pointerFrame);
}

void FakeSeat::release(std::uint32_t button) {
    wl_resource_post_event(pointer_, pointerButton, ++serial_, anyTime, button,
                           std::uint32_t{WL_POINTER_BUTTON_STATE_RELEASED});
    wl_resource_post_event(pointer_, pointerFrame);
}

void FakeSeat::touchDown(wl_surface* surface, int finger, double x, double y) {
    wl_resource_post_event(touch_, touchDownEvent, ++serial_, anyTime, serverSide(surface), finger,
                           fixed(x), fixed(y));
    wl_resource_post_event(touch_, touchFrame);
}

void FakeSeat::touchMove(int finger, double x, double y) {
    wl_resource_post_event(touch_, touchMotion, anyTime, finger, fixed(x), fixed(y));
    wl_resource_post_event(touch_, touchFrame);
}

void FakeSeat::touchUp(int finger) {
    wl_resource_post_event(touch_, touchUpEvent, ++serial_, anyTime, finger);
    wl_resource_post_event(touch_, touchFrame);
}

void FakeSeat::cancelTouch() {
    wl_resource_post_event(touch_, touchCancel);
}

}
