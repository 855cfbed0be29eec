#pragma once

#import <AppKit/NSFontDescriptor.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSFont : NSObject <NSCopying>
@property (class, readonly) CGFloat systemFontSize;
@property (class, readonly) CGFloat smallSystemFontSize;
+ (NSFont*)systemFontOfSize:(CGFloat)fontSize;
+ (NSFont*)systemFontOfSize:(CGFloat)fontSize
                     weight:(NSFontWeight)weight API_AVAILABLE(macos(10.11));
+ (NSFont*)monospacedDigitSystemFontOfSize:(CGFloat)fontSize
                                    weight:(NSFontWeight)weight API_AVAILABLE(macos(10.11));
@end

NS_ASSUME_NONNULL_END
