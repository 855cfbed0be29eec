#pragma once

#import <AppKit/NSControl.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSTextField : NSControl
@property (nullable, copy) NSColor* textColor;
@property (getter=isSelectable) BOOL selectable;
+ (instancetype)labelWithString:(NSString*)stringValue API_AVAILABLE(macos(10.12));
+ (instancetype)wrappingLabelWithString:(NSString*)stringValue API_AVAILABLE(macos(10.12));
@end

NS_ASSUME_NONNULL_END
