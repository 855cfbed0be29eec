/// The ordinary pointer's image, from the user's cursor theme.
#pragma once

#include "Connection/Proxies.hpp"
#include "Connection/SharedImage.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QPoint>
#include <cstdint>
#include <memory>

namespace vireline::wayland {

class WaylandConnection;

class Cursor : private NonCopyable {
public:
    explicit Cursor(const WaylandConnection& connection);

    /// Gives the pointer that image. `serial` is that of the event with which it entered a surface
    /// of ours. The theme is read when it is first needed; if there is none, the pointer keeps the
    /// image that it has.
    void show(wl_pointer& pointer, std::uint32_t serial, double pixelsPerPoint);

private:
    void load(int scale);

    Proxy<wl_shm> memory_;
    Proxy<wl_surface> surface_;
    /// Pixels per point of the image; 0 before one has been looked for.
    int scale_ = 0;
    std::unique_ptr<SharedImage> image_;
    QPoint hotspot_;
};

}
