#pragma once

#import <AppKit/NSResponder.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSView : NSResponder
@property (copy) NSArray<__kindof NSView*>* subviews;
@property (getter=isHidden) BOOL hidden;
@property NSRect frame;
@property (readonly, getter=isFlipped) BOOL flipped;
@property (readonly) NSSize fittingSize;
@property (nullable, copy) NSString* accessibilityLabel;
- (instancetype)initWithFrame:(NSRect)frameRect NS_DESIGNATED_INITIALIZER;
- (void)addSubview:(NSView*)view;
- (void)removeFromSuperview;
@end

NS_ASSUME_NONNULL_END
