/// An image of AppKit's behind the kit's handle.
#pragma once

#include "Platform/Icons.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

class MacImage final : public Image {
public:
    /// `image` has this size, in points; no one else changes it. Nil shows nothing.
    MacImage(NSImage* _Nullable image, Size size) : Image(size), image_(image) {}

    [[nodiscard]] NSImage* _Nullable image() const noexcept { return image_; }

private:
    NSImage* _Nullable image_;
};

}
