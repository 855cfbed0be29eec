/// The texts and symbols of the program's own windows.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Presentation/StatusLine.hpp"

#import <AppKit/AppKit.h>

#include <string>

/// Its own coordinates grow downwards, as the layout's do.
@interface VirelineFlippedView : NSView
@end

namespace vireline::macos::Labels {

[[nodiscard]] NSTextField* _Nonnull make(const std::string& text, NSFont* _Nonnull font,
                                         NSColor* _Nonnull color);

[[nodiscard]] NSFont* _Nonnull bodyFont();
[[nodiscard]] NSFont* _Nonnull captionFont();

/// The size of the label's text in lines of at most this width.
[[nodiscard]] Size fittingSize(NSTextField* _Nonnull label, double width);

[[nodiscard]] NSColor* _Nonnull color(StatusLine::Tone tone);

/// A system symbol; an empty view where the system has none of that name.
[[nodiscard]] NSImageView* _Nonnull makeSymbol(const std::string& name, NSColor* _Nonnull color);

}
