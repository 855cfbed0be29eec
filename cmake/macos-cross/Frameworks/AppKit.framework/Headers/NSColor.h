#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSColor : NSObject <NSCopying>
@property (class, strong, readonly) NSColor* blackColor;
@property (class, strong, readonly) NSColor* clearColor;
@property (class, strong, readonly) NSColor* labelColor;
@property (class, strong, readonly) NSColor* secondaryLabelColor;
@property (class, strong, readonly) NSColor* separatorColor API_AVAILABLE(macos(10.14));
@property (class, strong, readonly) NSColor* systemGreenColor;
@property (class, strong, readonly) NSColor* systemOrangeColor;
@property (class, strong, readonly) NSColor* systemRedColor;
@property (class, strong, readonly) NSColor* whiteColor;
@property (class, strong, readonly) NSColor* controlAccentColor API_AVAILABLE(macos(10.14));
@property (readonly) CGColorRef CGColor API_AVAILABLE(macos(10.8));
+ (nullable NSColor*)colorWithCGColor:(CGColorRef)cgColor API_AVAILABLE(macos(10.8));
- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha;
- (void)set;
@end

NS_ASSUME_NONNULL_END
