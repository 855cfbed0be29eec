#include "Input/Seat.hpp"

#include <wayland-client.h>

#include <algorithm>

namespace vireline::wayland {
namespace {

/// This version has the events of discrete scroll steps, but none of the newer ones.
constexpr std::uint32_t seatVersion = 5;

/// Sampling intervals of a moving pointer while no frame is due: a frame of usual displays if
/// something moves along with it, otherwise twice that.
constexpr std::chrono::milliseconds followInterval{16};
constexpr std::chrono::milliseconds lookInterval{33};

}

struct Seat::Events {
    static void capabilities(void* data, wl_seat* /*seat*/, std::uint32_t capabilities) {
        static_cast<Seat*>(data)->setCapabilities(capabilities);
    }
    static void name(void* /*data*/, wl_seat* /*seat*/, const char* /*name*/) {}

    static constexpr wl_seat_listener listener{.capabilities = capabilities, .name = name};
};

Seat::Seat(OwnConnection& connection)
    : connection_(connection)
    , cursor_(connection.globals())
    , globals_(connection.globals().observe([this] { update(); }))
    , reads_(connection.observeReads([this] { finishRead(); })) {
    update();
    connection.globals().flush();
}

Seat::~Seat() = default;

void Seat::update() {
    const WaylandConnection& globals = connection_.globals();
    const bool isOffered = globals.offered(wl_seat_interface.name) > 0;
    if (isOffered == (seat_ != nullptr))
        return;
    if (!isOffered) {
        setCapabilities(0);
        drags_.reset();
        seat_.reset();
        return;
    }
    seat_ = globals.bind<wl_seat>(wl_seat_interface, seatVersion);
    wl_seat_add_listener(seat_.get(), &Events::listener, this);
    drags_ = DragDevice::create(globals, *seat_, surfaces_);
}

void Seat::setCapabilities(std::uint32_t capabilities) {
    const auto has = [&](std::uint32_t capability) { return (capabilities & capability) != 0; };
    const auto pressed = [this](std::uint32_t serial) { lastPress_ = serial; };
    if (!has(WL_SEAT_CAPABILITY_POINTER))
        pointer_.reset();
    else if (!pointer_)
        pointer_ = std::make_unique<PointerDevice>(*seat_, surfaces_, cursor_, pressed);
    if (!has(WL_SEAT_CAPABILITY_TOUCH))
        touch_.reset();
    else if (!touch_)
        touch_ = std::make_unique<TouchDevice>(*seat_, surfaces_, pressed);
}

void Seat::frameBegins(std::chrono::microseconds untilNext) {
    // A little early, so that the frame itself is never late.
    const auto untilRead = untilNext * 9 / 10;
    nextFrame_ = Clock::now() + untilRead;
    connection_.shortenPause(std::chrono::floor<std::chrono::milliseconds>(untilRead));
}

/// A pointer that moves sends many more events than there are frames.
void Seat::finishRead() {
    if (!pointer_ || !pointer_->deliverMove())
        return;
    const auto now = Clock::now();
    const auto untilFrame = std::chrono::floor<std::chrono::milliseconds>(nextFrame_ - now);
    const bool awaitsFrame = now - nextFrame_ < followInterval;
    const auto whenIdle = pointer_->isFollowed() ? followInterval : lookInterval;
    const auto duration = awaitsFrame ? untilFrame : whenIdle;
    if (duration.count() > 0)
        connection_.pause(duration);
}

}
