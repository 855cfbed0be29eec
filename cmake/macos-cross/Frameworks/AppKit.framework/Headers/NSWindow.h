#pragma once

#import <AppKit/NSGraphics.h>
#import <AppKit/NSResponder.h>
#import <AppKit/NSView.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) {
    NSWindowStyleMaskTitled = 1 << 0,
    NSWindowStyleMaskClosable = 1 << 1,
    NSWindowStyleMaskMiniaturizable = 1 << 2
};

@interface NSWindow : NSResponder
@property (copy) NSString* title;
@property (nullable, strong) __kindof NSView* contentView;
@property (getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@property (readonly, getter=isVisible) BOOL visible;
@property (readonly, getter=isMiniaturized) BOOL miniaturized;
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backingStoreType
                              defer:(BOOL)flag NS_DESIGNATED_INITIALIZER;
- (void)center;
- (void)close;
- (void)makeKeyAndOrderFront:(nullable id)sender;
@end

NS_ASSUME_NONNULL_END
