#include "Input/PointerDevice.hpp"

#include "Input/SurfaceInput.hpp"

#include <linux/input-event-codes.h>
#include <wayland-client.h>

#include <optional>
#include <utility>

namespace vireline::wayland {
namespace {

std::optional<PointerButton> buttonOf(std::uint32_t code) {
    switch (code) {
    case BTN_LEFT:
        return PointerButton::left;
    case BTN_RIGHT:
        return PointerButton::right;
    case BTN_MIDDLE:
        return PointerButton::middle;
    default:
        return std::nullopt;
    }
}

}

struct PointerDevice::Events {
    static PointerDevice& device(void* data) { return *static_cast<PointerDevice*>(data); }

    static void enter(void* data, wl_pointer* pointer, std::uint32_t serial, wl_surface* surface,
                      wl_fixed_t x, wl_fixed_t y) {
        auto& self = device(data);
        self.surface_ = surface;
        self.position_ = {wl_fixed_to_double(x), wl_fixed_to_double(y)};
        self.hasMoved_ = false;
        if (SurfaceInput* const target = self.target()) {
            self.cursor_.show(*pointer, serial, target->pixelsPerPoint());
            target->pointerEntered(self.position_);
        }
    }
    static void leave(void* data, wl_pointer* /*pointer*/, std::uint32_t /*serial*/,
                      wl_surface* /*surface*/) {
        auto& self = device(data);
        self.deliverMove();
        SurfaceInput* const target = self.target();
        self.surface_ = nullptr;
        if (target != nullptr)
            target->pointerLeft();
    }
    static void motion(void* data, wl_pointer* /*pointer*/, std::uint32_t /*time*/, wl_fixed_t x,
                       wl_fixed_t y) {
        auto& self = device(data);
        self.position_ = {wl_fixed_to_double(x), wl_fixed_to_double(y)};
        self.hasMoved_ = true;
    }
    static void button(void* data, wl_pointer* /*pointer*/, std::uint32_t serial,
                       std::uint32_t /*time*/, std::uint32_t code, std::uint32_t state) {
        auto& self = device(data);
        const bool isPress = state == WL_POINTER_BUTTON_STATE_PRESSED;
        if (isPress)
            self.onPress_(serial);
        self.deliverMove();
        const auto button = buttonOf(code);
        SurfaceInput* const target = self.target();
        if (!button || target == nullptr)
            return;
        if (isPress)
            target->buttonPressed(*button);
        else
            target->buttonReleased(*button);
    }
    static void axis(void* /*data*/, wl_pointer* /*pointer*/, std::uint32_t /*time*/,
                     std::uint32_t /*axis*/, wl_fixed_t /*value*/) {}
    static void frame(void* /*data*/, wl_pointer* /*pointer*/) {}
    static void axisSource(void* /*data*/, wl_pointer* /*pointer*/, std::uint32_t /*source*/) {}
    static void axisStop(void* /*data*/, wl_pointer* /*pointer*/, std::uint32_t /*time*/,
                         std::uint32_t /*axis*/) {}
    static void axisDiscrete(void* /*data*/, wl_pointer* /*pointer*/, std::uint32_t /*axis*/,
                             std::int32_t /*steps*/) {}

    /// Newer versions have more events, which are never sent to this one.
    static constexpr wl_pointer_listener listener = [] {
        wl_pointer_listener events{};
        events.enter = enter;
        events.leave = leave;
        events.motion = motion;
        events.button = button;
        events.axis = axis;
        events.frame = frame;
        events.axis_source = axisSource;
        events.axis_stop = axisStop;
        events.axis_discrete = axisDiscrete;
        return events;
    }();
};

PointerDevice::PointerDevice(wl_seat& seat, const InputSurfaces& surfaces, Cursor& cursor,
                             std::function<void(std::uint32_t serial)> onPress)
    : surfaces_(surfaces)
    , cursor_(cursor)
    , onPress_(std::move(onPress))
    , pointer_(wl_seat_get_pointer(&seat)) {
    wl_pointer_add_listener(pointer_.get(), &Events::listener, this);
}

/// A pointer that is unplugged leaves.
PointerDevice::~PointerDevice() {
    if (SurfaceInput* const left = target())
        left->pointerLeft();
}

bool PointerDevice::deliverMove() {
    if (!std::exchange(hasMoved_, false))
        return false;
    if (SurfaceInput* const moved = target())
        moved->pointerMoved(position_);
    return true;
}

bool PointerDevice::isFollowed() const {
    const SurfaceInput* const under = target();
    return under != nullptr && under->followsPointer();
}

}
