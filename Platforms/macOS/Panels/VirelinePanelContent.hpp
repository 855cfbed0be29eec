/// What fills a dock's window: it takes the pointer and what is dragged here, for all that is shown
/// in it.
#pragma once

#include "Translation/PanelInput.hpp"

#import <AppKit/AppKit.h>

#include <memory>

@interface VirelinePanelContent : NSView <NSDraggingDestination>

/// `panel`, which it is to fill, is told when the pointer enters and leaves.
- (nonnull instancetype)initWithPanel:(nonnull NSPanel*)panel
                                input:(std::weak_ptr<vireline::macos::PanelInput>)input;

@end
