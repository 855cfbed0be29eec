/// Draws one node of a scene. A node of a new kind needs a case here.
#pragma once

#include "Presentation/Scene.hpp"

#import <AppKit/AppKit.h>

@interface VirelineNodeView : NSView

/// Creates a view for nodes of this node's kind. It does not show the node yet.
+ (nonnull VirelineNodeView*)viewForNode:(const vireline::SceneNode&)node;

/// Shows a node of that kind. `scale` is the display's pixels per point. The superview's
/// coordinates must be the scene's.
- (void)showNode:(const vireline::SceneNode&)node scale:(CGFloat)scale;

@end
