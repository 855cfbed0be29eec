/// The content view of a dock's window. It receives pointer events and drags for all of its
/// subviews.
#pragma once

#include "Translation/PanelInput.hpp"

#import <AppKit/AppKit.h>

#include <memory>

@interface VirelinePanelContent : NSView <NSDraggingDestination>

/// `panel`, which this view will fill, receives the events when the pointer enters and leaves.
- (nonnull instancetype)initWithPanel:(nonnull NSPanel*)panel
                                input:(std::weak_ptr<vireline::macos::PanelInput>)input;

@end
