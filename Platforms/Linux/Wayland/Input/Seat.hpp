/// The user's pointer, touch screen and drags on a connection of our own. Reads the connection once
/// per frame while the pointer moves.
#pragma once

#include "Connection/OwnConnection.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Input/Cursor.hpp"
#include "Input/DragDevice.hpp"
#include "Input/InputSurfaces.hpp"
#include "Input/PointerDevice.hpp"
#include "Input/TouchDevice.hpp"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

namespace vireline::wayland {

class Seat : private NonCopyable {
public:
    /// The connection must outlive this object. A seat may come and go.
    explicit Seat(OwnConnection& connection);
    ~Seat();

    [[nodiscard]] InputSurfaces& surfaces() noexcept { return surfaces_; }

    /// A frame of a surface has been shown, and the next one is wanted. Events are not left unread
    /// beyond the time when that is due.
    void frameBegins(std::chrono::microseconds untilNext);

    /// Null without a seat.
    [[nodiscard]] wl_seat* get() const noexcept { return seat_.get(); }
    /// The serial of the latest press on a surface of ours; 0 before the first.
    [[nodiscard]] std::uint32_t lastPress() const noexcept { return lastPress_; }

private:
    struct Events;
    using Clock = std::chrono::steady_clock;

    void update();
    void setCapabilities(std::uint32_t capabilities);
    void finishRead();

    OwnConnection& connection_;
    InputSurfaces surfaces_;
    Cursor cursor_;
    Proxy<wl_seat> seat_;
    std::unique_ptr<PointerDevice> pointer_;
    std::unique_ptr<TouchDevice> touch_;
    std::unique_ptr<DragDevice> drags_;
    std::uint32_t lastPress_ = 0;
    Clock::time_point nextFrame_;
    Subscription globals_;
    Subscription reads_;
};

}
