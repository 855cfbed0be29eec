/// A picture as the program handles it; its pixels are the platform's.
#pragma once

#include "Foundation/Geometry.hpp"

#include <memory>

namespace vireline {

/// What a platform draws for an image node. Sizes are in points.
class Image {
public:
    explicit Image(Size size) : size_(size) {}
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;
    Image(Image&&) = delete;
    Image& operator=(Image&&) = delete;
    virtual ~Image() = default;

    [[nodiscard]] Size size() const noexcept { return size_; }

private:
    Size size_;
};

/// Shared by every view that shows the image; equal handles are the same image.
using ImageHandle = std::shared_ptr<const Image>;

}
