/// One node of a scene on the screen. Nothing else on this platform looks at a node's kind to draw
/// it.
#pragma once

#include "Presentation/Scene.hpp"

#import <AppKit/AppKit.h>

@interface VirelineNodeView : NSView

/// A view for nodes of the kind of this one, which it does not show yet.
+ (nonnull VirelineNodeView*)viewForNode:(const vireline::SceneNode&)node;

/// Shows a node of that kind; `scale` is the display's pixels per point. The superview's
/// coordinates are the scene's.
- (void)showNode:(const vireline::SceneNode&)node scale:(CGFloat)scale;

@end
