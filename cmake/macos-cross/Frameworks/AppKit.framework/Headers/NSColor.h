#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSColor : NSObject <NSCopying>
@property (class, strong, readonly) NSColor* labelColor;
@property (class, strong, readonly) NSColor* secondaryLabelColor;
@property (class, strong, readonly) NSColor* systemGreenColor;
@property (class, strong, readonly) NSColor* systemOrangeColor;
@property (class, strong, readonly) NSColor* controlAccentColor API_AVAILABLE(macos(10.14));
- (NSColor*)colorWithAlphaComponent:(CGFloat)alpha;
@end

NS_ASSUME_NONNULL_END
