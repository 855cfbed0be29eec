#pragma once

#import <AppKit/NSAccessibilityProtocols.h>
#import <AppKit/NSAnimation.h>
#import <AppKit/NSColor.h>
#import <AppKit/NSGraphics.h>
#import <AppKit/NSResponder.h>
#import <AppKit/NSScreen.h>
#import <AppKit/NSView.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskClosable = 1 << 1,
    NSWindowStyleMaskMiniaturizable = 1 << 2,
    NSWindowStyleMaskNonactivatingPanel = 1 << 7
};

typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    NSWindowCollectionBehaviorMoveToActiveSpace = 1 << 1,
    NSWindowCollectionBehaviorStationary = 1 << 4,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8
};

typedef NSInteger NSWindowLevel;
static const NSWindowLevel NSFloatingWindowLevel = 3;

@interface NSWindow : NSResponder <NSAnimatablePropertyContainer, NSAccessibility>
@property (readonly) NSRect frame;
@property (nullable, readonly, strong) NSScreen* screen;
@property (readonly) NSInteger windowNumber;
@property (readonly) CGFloat backingScaleFactor API_AVAILABLE(macos(10.7));
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior API_AVAILABLE(macos(10.5));
@property BOOL hidesOnDeactivate;
@property BOOL canHide;
@property (getter=isOpaque) BOOL opaque;
@property (null_resettable, copy) NSColor* backgroundColor;
@property (getter=isMovable) BOOL movable API_AVAILABLE(macos(10.6));
@property BOOL hasShadow;
@property (readonly) BOOL canBecomeKeyWindow;
@property (readonly) BOOL canBecomeMainWindow;
@property (copy) NSString* title;
@property (nullable, strong) __kindof NSView* contentView;
@property (getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property (readonly, getter=isVisible) BOOL visible;
@property (readonly, getter=isMiniaturized) BOOL miniaturized;
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag NS_DESIGNATED_INITIALIZER;
+ (NSInteger)windowNumberAtPoint:(NSPoint)point
    belowWindowWithWindowNumber:(NSInteger)windowNumber API_AVAILABLE(macos(10.6));
- (void)center;
- (void)close;
- (NSRect)constrainFrameRect:(NSRect)frameRect toScreen:(nullable NSScreen*)screen;
- (void)setFrame:(NSRect)frameRect display:(BOOL)flag;
- (NSPoint)convertPointFromScreen:(NSPoint)point API_AVAILABLE(macos(10.12));
- (void)orderFrontRegardless;
- (void)orderOut:(nullable id)sender;
- (void)makeKeyAndOrderFront:(nullable id)sender;
@end

APPKIT_EXTERN NSNotificationName const NSWindowWillCloseNotification;

NS_ASSUME_NONNULL_END
