/// An NSImage behind the kit's image handle.
#pragma once

#include "Platform/Applications/Icons.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

class MacImage final : public Image {
public:
    /// `image` has this size, in points, and must not be changed by anyone else. Nil shows nothing.
    MacImage(NSImage* _Nullable image, Size size) : Image(size), image_(image) {}

    [[nodiscard]] NSImage* _Nullable image() const noexcept { return image_; }

private:
    NSImage* _Nullable image_;
};

}
