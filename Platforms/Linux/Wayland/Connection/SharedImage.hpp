/// An image in memory that the compositor reads.
#pragma once

#include "Connection/Proxies.hpp"
#include "Files/FileDescriptor.hpp"
#include "Foundation/NonCopyable.hpp"

#include <QImage>
#include <QSize>
#include <cstddef>
#include <memory>

namespace vireline::wayland {

class SharedImage : private NonCopyable {
public:
    /// Transparent, with premultiplied colours. `size` is in pixels. Null if there is no memory for
    /// it, or if the size is empty or too large for the protocol.
    [[nodiscard]] static std::unique_ptr<SharedImage> make(wl_shm& memory, QSize size);
    ~SharedImage();

    [[nodiscard]] QImage& image() noexcept { return image_; }
    /// To be attached to a surface.
    [[nodiscard]] wl_buffer* buffer() const noexcept { return buffer_.get(); }

    /// Whether the compositor may be reading the image: from the call of `lend` until it releases
    /// the buffer.
    [[nodiscard]] bool isLent() const noexcept { return isLent_; }
    void lend() noexcept { isLent_ = true; }

private:
    struct Events;

    SharedImage(wl_shm& memory, const xdg::FileDescriptor& file, QSize size);

    std::size_t bytes_;
    /// The mapped pages; MAP_FAILED if mapping failed.
    void* pages_;
    QImage image_;
    Proxy<wl_buffer> buffer_;
    bool isLent_ = false;
};

}
