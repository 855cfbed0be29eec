#pragma once

#include <TargetConditionals.h>

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSImageName;

// The values of the two modes are swapped on Apple silicon.
typedef NS_ENUM(NSInteger, NSImageResizingMode) {
#if TARGET_CPU_ARM64
    NSImageResizingModeStretch = 1
#else
    NSImageResizingModeStretch = 0
#endif
};

@interface NSImage : NSObject <NSCopying>
@property NSSize size;
@property NSEdgeInsets capInsets API_AVAILABLE(macos(10.10));
@property NSImageResizingMode resizingMode API_AVAILABLE(macos(10.10));
+ (nullable NSImage*)imageNamed:(NSImageName)name;
+ (nullable instancetype)imageWithSystemSymbolName:(NSString*)symbolName
                          accessibilityDescription:(nullable NSString*)description
    API_AVAILABLE(macos(11.0));
+ (instancetype)imageWithSize:(NSSize)size
                      flipped:(BOOL)drawingHandlerShouldBeCalledWithFlippedContext
               drawingHandler:(BOOL (^)(NSRect dstRect))drawingHandler
    API_AVAILABLE(macos(10.8));
- (BOOL)isTemplate;
- (void)drawInRect:(NSRect)rect API_AVAILABLE(macos(10.9));
- (id)layerContentsForContentsScale:(CGFloat)layerContentsScale API_AVAILABLE(macos(10.7));
@end

NS_ASSUME_NONNULL_END
