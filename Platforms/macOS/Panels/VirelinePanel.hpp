/// The NSPanel of a dock: borderless, floating, on every desktop, never key and never main.
#pragma once

#include "Translation/PanelInput.hpp"

#import <AppKit/AppKit.h>

#include <memory>

@interface VirelinePanel : NSPanel

/// Creates an empty, hidden panel. `frame` is in global coordinates.
- (nonnull instancetype)initWithFrame:(NSRect)frame
                                input:(std::weak_ptr<vireline::macos::PanelInput>)input;

/// Whether the window is visible and the pointer is over it, not over a window in front of it.
@property(readonly) BOOL isUnderPointer;

@end
