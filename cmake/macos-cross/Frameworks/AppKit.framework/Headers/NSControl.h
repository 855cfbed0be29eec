#pragma once

#import <AppKit/NSCell.h>
#import <AppKit/NSColor.h>
#import <AppKit/NSFont.h>
#import <AppKit/NSParagraphStyle.h>
#import <AppKit/NSText.h>
#import <AppKit/NSView.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSUInteger, NSControlSize) { NSControlSizeSmall = 1 };

@interface NSControl : NSView
@property (nullable, weak) id target;
@property (nullable) SEL action;
@property (nullable, copy) NSFont* font;
@property NSTextAlignment alignment;
@property NSLineBreakMode lineBreakMode API_AVAILABLE(macos(10.10));
@property BOOL usesSingleLineMode API_AVAILABLE(macos(10.10));
@property NSControlSize controlSize;
@property (copy) NSString* stringValue;
@property double doubleValue;
- (NSSize)sizeThatFits:(NSSize)size API_AVAILABLE(macos(10.10));
@end

NS_ASSUME_NONNULL_END
