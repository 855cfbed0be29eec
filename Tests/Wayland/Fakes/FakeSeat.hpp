/// A seat with a pointer and a touch screen on the fake compositor, for one client.
#pragma once

#include "Wayland/Fakes/FakeCompositor.hpp"
#include "Wayland/Fakes/RequestLog.hpp"

#include <cstdint>

struct wl_resource;
struct wl_surface;

namespace vireline::wayland {

class FakeSeat : private NonCopyable {
public:
    /// Flags of the protocol.
    static constexpr std::uint32_t pointer = 1;
    static constexpr std::uint32_t touch = 4;

    explicit FakeSeat(FakeCompositor& compositor, std::uint32_t capabilities = pointer | touch);

    void setCapabilities(std::uint32_t capabilities);
    /// The seat as a whole goes.
    void withdraw();

    /// The requests since the previous call.
    [[nodiscard]] RequestLog::Requests requests() { return log_.take(); }

    /// These events belong to the compositor's thread; see `FakeCompositor::send`. Surfaces are the
    /// client's.
    void enter(wl_surface* surface, double x, double y);
    void leave(wl_surface* surface);
    void move(double x, double y);
    void press(std::uint32_t button);
    void release(std::uint32_t button);

    void touchDown(wl_surface* surface, int finger, double x, double y);
    void touchMove(int finger, double x, double y);
    void touchUp(int finger);
    void cancelTouch();

    /// The serial of the latest event that carries one.
    [[nodiscard]] std::uint32_t serial() const noexcept { return serial_; }

private:
    /// The compositor's object for the client's.
    [[nodiscard]] wl_resource* serverSide(wl_surface* surface) const;

    FakeCompositor& compositor_;
    std::uint32_t capabilities_;
    wl_resource* seat_ = nullptr;
    wl_resource* pointer_ = nullptr;
    wl_resource* touch_ = nullptr;
    std::uint32_t serial_ = 0;
    RequestLog log_{compositor_};
};

}
