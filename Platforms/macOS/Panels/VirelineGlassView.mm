#include "Panels/VirelineGlassView.hpp"

/// The part of the system's glass view that is used. Systems and SDKs before version 26 do not have
/// it.
@protocol VirelineSystemGlass
@property CGFloat cornerRadius;
@property(nullable, strong) NSView* contentView;
@end

namespace {

NSView<VirelineSystemGlass>* makeGlass() {
    const Class glass = NSClassFromString(@"NSGlassEffectView");
    const BOOL isKnown = [glass isSubclassOfClass:NSView.class] &&
                         [glass instancesRespondToSelector:@selector(setCornerRadius:)] &&
                         [glass instancesRespondToSelector:@selector(setContentView:)];
    return isKnown ? [[glass alloc] initWithFrame:NSZeroRect] : nil;
}

NSVisualEffectView* makeMaterial() {
    NSVisualEffectView* const material = [[NSVisualEffectView alloc] initWithFrame:NSZeroRect];
    material.material = NSVisualEffectMaterialPopover;
    material.blendingMode = NSVisualEffectBlendingModeBehindWindow;
    // Otherwise it would look inactive, since the window is never key.
    material.state = NSVisualEffectStateActive;
    return material;
}

/// A mask with rounded corners that stretches to any size.
NSImage* roundedMask(CGFloat radius) {
    const CGFloat side = 2 * radius + 1;
    NSImage* const mask = [NSImage imageWithSize:NSMakeSize(side, side)
                                         flipped:NO
                                  drawingHandler:^(NSRect rect) {
                                    [NSColor.blackColor set];
                                    [[NSBezierPath bezierPathWithRoundedRect:rect
                                                                     xRadius:radius
                                                                     yRadius:radius] fill];
                                    return YES;
                                  }];
    mask.capInsets = NSEdgeInsetsMake(radius, radius, radius, radius);
    mask.resizingMode = NSImageResizingModeStretch;
    return mask;
}

}

@implementation VirelineGlassView {
    /// Exactly one of these is nil.
    NSView<VirelineSystemGlass>* _glass;
    NSVisualEffectView* _material;
}

- (instancetype)initWithFrame:(NSRect)frame {
    self = [super initWithFrame:frame];
    if (self == nil)
        return nil;
    _glass = makeGlass();
    if (_glass == nil)
        _material = makeMaterial();
    NSView* const background = _glass == nil ? _material : _glass;
    background.frame = self.bounds;
    background.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    [self addSubview:background];
    return self;
}

- (void)setCornerRadius:(CGFloat)cornerRadius {
    if (cornerRadius == _cornerRadius)
        return;
    _cornerRadius = cornerRadius;
    _glass.cornerRadius = cornerRadius;
    _material.maskImage = roundedMask(cornerRadius);
}

- (void)embed:(NSView*)view {
    view.frame = self.bounds;
    view.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    _glass.contentView = view;
    [_material addSubview:view];
}

@end
