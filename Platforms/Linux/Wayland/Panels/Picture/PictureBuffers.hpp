/// The memory that a dock's pictures are painted in. Never paints into a buffer that the compositor
/// is still reading.
#pragma once

#include "Connection/SharedImage.hpp"
#include "Foundation/NonCopyable.hpp"
#include "Painting/Pixels/Damage.hpp"

#include <QImage>
#include <QSize>
#include <cstddef>
#include <vector>

namespace vireline::wayland {

class PictureBuffers : private NonCopyable {
public:
    /// Compositors read one buffer and hold on to the previous one. A compositor that holds on to
    /// more of them may see a picture change.
    static constexpr std::size_t maximum = 4;

    explicit PictureBuffers(wl_shm& memory) : memory_(memory) {}

    /// The size in pixels. A new size makes the content transparent. Returns false if there is no
    /// memory for it; the size is empty then.
    [[nodiscard]] bool resize(QSize size);
    [[nodiscard]] QSize size() const noexcept { return size_; }

    /// The image to paint on, with the content of the latest picture. The size may not be empty.
    [[nodiscard]] QImage& next();
    /// To be called when a picture has been painted on `next`; `changed` is where it differs from
    /// the previous picture. Returns its buffer, to be attached to a surface.
    [[nodiscard]] wl_buffer& finish(const xdg::Damage& changed);

private:
    struct Buffer {
        std::unique_ptr<SharedImage> shared;
        /// Where the buffer differs from the latest picture.
        xdg::Damage outdated;
    };

    [[nodiscard]] std::size_t freeBuffer();

    wl_shm& memory_;
    QSize size_;
    /// Has at least one buffer unless the size is empty.
    std::vector<Buffer> buffers_;
    std::size_t latest_ = 0;
    std::size_t next_ = 0;
};

}
