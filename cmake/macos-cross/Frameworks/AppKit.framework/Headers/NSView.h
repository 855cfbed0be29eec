#pragma once

#import <AppKit/NSAccessibilityProtocols.h>
#import <AppKit/NSAnimation.h>
#import <AppKit/NSDragging.h>
#import <AppKit/NSResponder.h>
#import <AppKit/NSTrackingArea.h>
#import <QuartzCore/QuartzCore.h>

NS_ASSUME_NONNULL_BEGIN

@class NSWindow;

typedef NS_OPTIONS(NSUInteger, NSAutoresizingMaskOptions) {
    NSViewMinXMargin = 1,
    NSViewWidthSizable = 2,
    NSViewHeightSizable = 16
};

typedef NS_ENUM(NSInteger, NSViewLayerContentsRedrawPolicy) {
    NSViewLayerContentsRedrawOnSetNeedsDisplay = 1
};

@interface NSView : NSResponder <NSAccessibility>
@property (nullable, readonly, assign) NSWindow* window;
@property (nullable, readonly, assign) NSView* superview;
@property NSRect bounds;
@property NSAutoresizingMaskOptions autoresizingMask;
@property CGFloat alphaValue;
@property BOOL needsDisplay;
@property BOOL wantsLayer;
@property (nullable, strong) CALayer* layer;
@property (readonly) BOOL wantsUpdateLayer API_AVAILABLE(macos(10.8));
@property NSViewLayerContentsRedrawPolicy layerContentsRedrawPolicy;
@property (readonly) NSSize intrinsicContentSize API_AVAILABLE(macos(10.7));
@property (copy) NSArray<__kindof NSView*>* subviews;
@property (getter=isHidden) BOOL hidden;
@property NSRect frame;
@property (readonly, getter=isFlipped) BOOL flipped;
@property (readonly) NSSize fittingSize;
- (instancetype)initWithFrame:(NSRect)frameRect NS_DESIGNATED_INITIALIZER;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
- (NSPoint)convertPoint:(NSPoint)point fromView:(nullable NSView*)view;
- (nullable NSView*)hitTest:(NSPoint)point;
- (BOOL)acceptsFirstMouse:(nullable NSEvent*)event;
- (CALayer*)makeBackingLayer;
- (void)updateLayer API_AVAILABLE(macos(10.8));
- (void)viewDidMoveToWindow;
- (void)viewDidChangeEffectiveAppearance API_AVAILABLE(macos(10.14));
- (void)viewDidChangeBackingProperties API_AVAILABLE(macos(10.7));
- (void)addTrackingArea:(NSTrackingArea*)trackingArea;
- (void)registerForDraggedTypes:(NSArray<NSPasteboardType>*)newTypes;
- (CADisplayLink*)displayLinkWithTarget:(id)target
                               selector:(SEL)selector API_AVAILABLE(macos(14.0));
@end

NS_ASSUME_NONNULL_END
