/// The accessibility element of a tile: a button whose value tells whether its app is running, with
/// a menu. Every attribute is looked up when queried, so that none is outdated.
#pragma once

#import <AppKit/AppKit.h>

#include <cstdint>

@class VirelineDockView;

@interface VirelineTileElement : NSAccessibilityElement

- (nonnull instancetype)initWithTile:(std::uint32_t)tile dock:(nonnull VirelineDockView*)dock;

@property(readonly) std::uint32_t tile;

@end
