/// An opaque handle to an image, whose pixels belong to the platform.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Foundation/NonCopyable.hpp"

#include <memory>

namespace vireline {

/// The platform's image for an image node. The size is in points.
class Image : private NonCopyable {
public:
    explicit Image(Size size) : size_(size) {}
    virtual ~Image() = default;

    [[nodiscard]] Size size() const noexcept { return size_; }

private:
    Size size_;
};

/// Shared by all views that show the image; equal handles are the same image.
using ImageHandle = std::shared_ptr<const Image>;

}
