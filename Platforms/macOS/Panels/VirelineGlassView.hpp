/// A translucent background of the system's with rounded corners: its glass where the running
/// system has it, else its regular material.
#pragma once

#import <AppKit/AppKit.h>

@interface VirelineGlassView : NSView

/// Points, at most that of a capsule.
@property(nonatomic) CGFloat cornerRadius;

/// Shows `view` in the glass, which it fills.
- (void)embed:(nonnull NSView*)view;

@end
