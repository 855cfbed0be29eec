/// The pointer over surfaces of ours. Movements are passed on once for all events that arrive
/// together.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Input/Cursor.hpp"
#include "Input/InputSurfaces.hpp"

#include <QPointF>
#include <cstdint>
#include <functional>

namespace vireline::wayland {

class PointerDevice : private NonCopyable {
public:
    /// `onPress` is called with the serial of each press. The others must outlive this object.
    PointerDevice(wl_seat& seat, const InputSurfaces& surfaces, Cursor& cursor,
                  std::function<void(std::uint32_t serial)> onPress);
    ~PointerDevice();

    /// Passes the movement on that has been read, if any; returns whether there was one.
    bool deliverMove();
    /// Whether the surface under the pointer follows it.
    [[nodiscard]] bool isFollowed() const;

private:
    struct Events;

    [[nodiscard]] SurfaceInput* target() const { return surfaces_.find(surface_); }

    const InputSurfaces& surfaces_;
    Cursor& cursor_;
    std::function<void(std::uint32_t)> onPress_;
    Proxy<wl_pointer> pointer_;
    /// The surface under the pointer; null if it is not ours.
    wl_surface* surface_ = nullptr;
    QPointF position_;
    bool hasMoved_ = false;
};

}
