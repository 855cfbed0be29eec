#include "Connection/SharedImage.hpp"

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

#include <cstdint>
#include <limits>

namespace vireline::wayland {
namespace {

constexpr int bytesPerPixel = 4;

std::size_t bytesOf(QSize size) {
    return static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()) *
           bytesPerPixel;
}

/// Whether the protocol, which counts bytes in 31 bits, has images of that size. Compositors end
/// the connection for larger ones.
bool isPossible(QSize size) {
    return !size.isEmpty() &&
           size.width() <= std::numeric_limits<std::int32_t>::max() / bytesPerPixel / size.height();
}

}

struct SharedImage::Events {
    static void release(void* data, wl_buffer* /*buffer*/) {
        static_cast<SharedImage*>(data)->isLent_ = false;
    }

    static constexpr wl_buffer_listener listener{.release = release};
};

std::unique_ptr<SharedImage> SharedImage::make(wl_shm& memory, QSize size) {
    if (!isPossible(size))
        return nullptr;
    const xdg::FileDescriptor file{memfd_create("vireline", MFD_CLOEXEC)};
    if (!file || ftruncate(file.get(), static_cast<off_t>(bytesOf(size))) != 0)
        return nullptr;
    std::unique_ptr<SharedImage> made{new SharedImage{memory, file, size}};
    return made->buffer_ ? std::move(made) : nullptr;
}

SharedImage::SharedImage(wl_shm& memory, const xdg::FileDescriptor& file, QSize size)
    : bytes_(bytesOf(size))
    , pages_(mmap(nullptr, bytes_, PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0)) {
    if (pages_ == MAP_FAILED)
        return;
    const int pitch = size.width() * bytesPerPixel;
    image_ = QImage{static_cast<uchar*>(pages_), size.width(), size.height(), pitch,
                    QImage::Format_ARGB32_Premultiplied};
    wl_shm_pool* const pool =
        wl_shm_create_pool(&memory, file.get(), static_cast<std::int32_t>(bytes_));
    buffer_.reset(wl_shm_pool_create_buffer(pool, 0, size.width(), size.height(), pitch,
                                            WL_SHM_FORMAT_ARGB8888));
    wl_shm_pool_destroy(pool);
    wl_buffer_add_listener(buffer_.get(), &Events::listener, this);
}

SharedImage::~SharedImage() {
    if (pages_ != MAP_FAILED)
        munmap(pages_, bytes_);
}

}
