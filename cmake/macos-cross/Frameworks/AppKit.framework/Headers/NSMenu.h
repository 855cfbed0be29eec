#pragma once

#import <AppKit/NSMenuItem.h>

NS_ASSUME_NONNULL_BEGIN

@protocol NSMenuDelegate <NSObject>
@optional
- (void)menuNeedsUpdate:(NSMenu*)menu;
@end

@interface NSMenu : NSObject <NSCopying>
@property (nullable, weak) id<NSMenuDelegate> delegate;
- (instancetype)initWithTitle:(NSString*)title NS_DESIGNATED_INITIALIZER;
- (void)addItem:(NSMenuItem*)newItem;
- (nullable NSMenuItem*)itemWithTag:(NSInteger)tag;
@end

NS_ASSUME_NONNULL_END
