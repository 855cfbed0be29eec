/// A tile as assistive technology sees it: a button that says whether its app runs and offers its
/// menu. Everything is asked for afresh, so that nothing it says is out of date.
#pragma once

#import <AppKit/AppKit.h>

#include <cstdint>

@class VirelineDockView;

@interface VirelineTileElement : NSAccessibilityElement

- (nonnull instancetype)initWithTile:(std::uint32_t)tile dock:(nonnull VirelineDockView*)dock;

@property(readonly) std::uint32_t tile;

@end
