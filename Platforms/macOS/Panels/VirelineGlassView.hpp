/// A translucent background with rounded corners: the system's glass if it has that, otherwise a
/// visual effect view.
#pragma once

#import <AppKit/AppKit.h>

@interface VirelineGlassView : NSView

/// In points; at most half the shorter side.
@property(nonatomic) CGFloat cornerRadius;

/// Embeds `view`, which fills the glass.
- (void)embed:(nonnull NSView*)view;

@end
