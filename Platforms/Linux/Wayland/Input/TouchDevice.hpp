/// The first finger on a touch screen, which acts as a pointer with its primary button held.
#pragma once

#include "Connection/Proxies.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Input/InputSurfaces.hpp"

#include <cstdint>
#include <functional>
#include <optional>

namespace vireline::wayland {

class TouchDevice : private NonCopyable {
public:
    /// `onPress` is called with the serial of each touch. The surfaces must outlive this object.
    TouchDevice(wl_seat& seat, const InputSurfaces& surfaces,
                std::function<void(std::uint32_t serial)> onPress);
    ~TouchDevice();

private:
    struct Events;

    void cancel();

    const InputSurfaces& surfaces_;
    std::function<void(std::uint32_t)> onPress_;
    Proxy<wl_touch> touch_;
    wl_surface* surface_ = nullptr;
    std::optional<std::int32_t> finger_;
};

}
