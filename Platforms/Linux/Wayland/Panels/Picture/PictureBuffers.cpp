#include "Panels/Picture/PictureBuffers.hpp"

#include "Painting/Pixels/Pixels.hpp"

#include <algorithm>
#include <utility>

namespace vireline::wayland {

bool PictureBuffers::resize(QSize size) {
    if (size == size_)
        return true;
    buffers_.clear();
    latest_ = next_ = 0;
    auto first = SharedImage::make(memory_, size);
    size_ = first ? size : QSize{};
    if (first)
        buffers_.push_back({std::move(first), {}});
    return !buffers_.empty();
}

std::size_t PictureBuffers::freeBuffer() {
    const auto found = std::ranges::find_if(
        buffers_, [](const Buffer& buffer) { return !buffer.shared->isLent(); });
    if (found != buffers_.end())
        return static_cast<std::size_t>(found - buffers_.begin());
    auto added = buffers_.size() < maximum ? SharedImage::make(memory_, size_) : nullptr;
    if (!added)
        return (latest_ + 1) % buffers_.size();
    xdg::Damage everything;
    everything.add({{0, 0}, size_});
    buffers_.push_back({std::move(added), everything});
    return buffers_.size() - 1;
}

QImage& PictureBuffers::next() {
    next_ = freeBuffer();
    Buffer& buffer = buffers_[next_];
    const auto outdated = std::exchange(buffer.outdated, {});
    const auto latest = xdg::Pixels::pieceOf(buffers_[latest_].shared->image(), {0, 0});
    const auto canvas = xdg::Pixels::canvas(buffer.shared->image());
    for (const QRect& rect : outdated.rects())
        xdg::Pixels::copy(canvas, latest, rect);
    return buffer.shared->image();
}

wl_buffer& PictureBuffers::finish(const xdg::Damage& changed) {
    latest_ = next_;
    for (std::size_t i = 0; i < buffers_.size(); ++i) {
        if (i == latest_)
            continue;
        for (const QRect& rect : changed.rects())
            buffers_[i].outdated.add(rect);
    }
    SharedImage& shown = *buffers_[latest_].shared;
    shown.lend();
    return *shown.buffer();
}

}
