/// Creates texts and symbols for the program's own windows.
#pragma once

#include "Foundation/Geometry.hpp"
#include "Presentation/StatusLine.hpp"

#import <AppKit/AppKit.h>

#include <string>

/// A view whose y axis points downwards, as in the layout code.
@interface VirelineFlippedView : NSView
@end

namespace vireline::macos::Labels {

[[nodiscard]] NSTextField* _Nonnull make(const std::string& text, NSFont* _Nonnull font,
                                         NSColor* _Nonnull color);

[[nodiscard]] NSFont* _Nonnull bodyFont();
[[nodiscard]] NSFont* _Nonnull captionFont();

/// The size of the label's text, wrapped at this width.
[[nodiscard]] Size fittingSize(NSTextField* _Nonnull label, double width);

[[nodiscard]] NSColor* _Nonnull color(StatusLine::Tone tone);

/// A view with a system symbol; empty if the system has no symbol of this name.
[[nodiscard]] NSImageView* _Nonnull makeSymbol(const std::string& name, NSColor* _Nonnull color);

}
