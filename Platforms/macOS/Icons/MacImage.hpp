/// An image of AppKit's behind the kit's handle.
#pragma once

#include "Platform/Icons.hpp"

#import <AppKit/AppKit.h>

namespace vireline::macos {

class MacImage final : public Image {
public:
    /// `image` has this size, in points; no one else changes it.
    MacImage(NSImage* _Nonnull image, Size size) : Image(size), image_(image) {}

    [[nodiscard]] NSImage* _Nonnull image() const noexcept { return image_; }

private:
    NSImage* _Nonnull image_;
};

}
