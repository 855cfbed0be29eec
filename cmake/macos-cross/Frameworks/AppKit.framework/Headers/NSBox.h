#pragma once

#import <AppKit/NSColor.h>
#import <AppKit/NSView.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSUInteger, NSTitlePosition) { NSNoTitle = 0 };
typedef NS_ENUM(NSUInteger, NSBoxType) { NSBoxSeparator = 2, NSBoxCustom = 4 };

@interface NSBox : NSView
@property NSBoxType boxType;
@property NSTitlePosition titlePosition;
@property NSSize contentViewMargins;
@property (nullable, strong) NSView* contentView;
@property CGFloat borderWidth;
@property CGFloat cornerRadius;
@property (copy) NSColor* fillColor;
- (void)setFrameFromContentFrame:(NSRect)contentFrame;
@end

NS_ASSUME_NONNULL_END
