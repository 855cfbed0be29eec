#pragma once

#import <AppKit/NSView.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSScrollView : NSView
@property (nullable, strong) __kindof NSView* documentView;
@property BOOL drawsBackground;
@property BOOL hasVerticalScroller;
@property BOOL autohidesScrollers;
@end

NS_ASSUME_NONNULL_END
