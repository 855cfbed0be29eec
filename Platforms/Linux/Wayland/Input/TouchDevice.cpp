#include "Input/TouchDevice.hpp"

#include "Input/SurfaceInput.hpp"

#include <wayland-client.h>

#include <utility>

namespace vireline::wayland {

struct TouchDevice::Events {
    static TouchDevice& device(void* data) { return *static_cast<TouchDevice*>(data); }

    static void down(void* data, wl_touch* /*touch*/, std::uint32_t serial, std::uint32_t /*time*/,
                     wl_surface* surface, std::int32_t finger, wl_fixed_t x, wl_fixed_t y) {
        auto& self = device(data);
        if (self.finger_)
            return;
        self.finger_ = finger;
        self.surface_ = surface;
        self.onPress_(serial);
        if (SurfaceInput* const target = self.surfaces_.find(surface)) {
            target->pointerEntered({wl_fixed_to_double(x), wl_fixed_to_double(y)});
            target->buttonPressed(PointerButton::left);
        }
    }
    static void up(void* data, wl_touch* /*touch*/, std::uint32_t /*serial*/,
                   std::uint32_t /*time*/, std::int32_t finger) {
        auto& self = device(data);
        if (self.finger_ != finger)
            return;
        self.finger_.reset();
        SurfaceInput* const target = self.surfaces_.find(self.surface_);
        if (target == nullptr)
            return;
        target->buttonReleased(PointerButton::left);
        target->pointerLeft();
    }
    static void motion(void* data, wl_touch* /*touch*/, std::uint32_t /*time*/, std::int32_t finger,
                       wl_fixed_t x, wl_fixed_t y) {
        auto& self = device(data);
        SurfaceInput* const target = self.surfaces_.find(self.surface_);
        if (self.finger_ == finger && target != nullptr)
            target->pointerMoved({wl_fixed_to_double(x), wl_fixed_to_double(y)});
    }
    static void frame(void* /*data*/, wl_touch* /*touch*/) {}
    /// The compositor has taken the touch for a gesture of its own.
    static void cancel(void* data, wl_touch* /*touch*/) { device(data).cancel(); }

    /// Newer versions have more events, which are never sent to this one.
    static constexpr wl_touch_listener listener = [] {
        wl_touch_listener events{};
        events.down = down;
        events.up = up;
        events.motion = motion;
        events.frame = frame;
        events.cancel = cancel;
        return events;
    }();
};

TouchDevice::TouchDevice(wl_seat& seat, const InputSurfaces& surfaces,
                         std::function<void(std::uint32_t serial)> onPress)
    : surfaces_(surfaces), onPress_(std::move(onPress)), touch_(wl_seat_get_touch(&seat)) {
    wl_touch_add_listener(touch_.get(), &Events::listener, this);
}

/// A screen that is unplugged is no longer touched.
TouchDevice::~TouchDevice() {
    cancel();
}

void TouchDevice::cancel() {
    SurfaceInput* const target = surfaces_.find(surface_);
    if (std::exchange(finger_, std::nullopt) && target != nullptr)
        target->pointerLeft();
}

}
