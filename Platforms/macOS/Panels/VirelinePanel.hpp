/// The window that carries a dock: borderless, floating, on every desktop, never key and never
/// main.
#pragma once

#include "Translation/PanelInput.hpp"

#import <AppKit/AppKit.h>

#include <memory>

@interface VirelinePanel : NSPanel

/// Empty and not shown. `frame` is in global coordinates.
- (nonnull instancetype)initWithFrame:(NSRect)frame
                                input:(std::weak_ptr<vireline::macos::PanelInput>)input;

/// Whether the pointer is somewhere over the window, which is shown.
@property(readonly) BOOL isUnderPointer;

@end
