#pragma once

#import <AppKit/NSMenuItem.h>

NS_ASSUME_NONNULL_BEGIN

@class NSView;

@protocol NSMenuDelegate <NSObject>
@optional
- (void)menuNeedsUpdate:(NSMenu*)menu;
@end

@interface NSMenu : NSObject <NSCopying>
@property (nullable, weak) id<NSMenuDelegate> delegate;
@property (readonly) NSSize size API_AVAILABLE(macos(10.6));
- (instancetype)initWithTitle:(NSString*)title NS_DESIGNATED_INITIALIZER;
- (void)addItem:(NSMenuItem*)newItem;
- (BOOL)popUpMenuPositioningItem:(nullable NSMenuItem*)item
                      atLocation:(NSPoint)location
                          inView:(nullable NSView*)view API_AVAILABLE(macos(10.6));
- (void)cancelTrackingWithoutAnimation API_AVAILABLE(macos(10.6));
- (nullable NSMenuItem*)itemWithTag:(NSInteger)tag;
@end

NS_ASSUME_NONNULL_END
