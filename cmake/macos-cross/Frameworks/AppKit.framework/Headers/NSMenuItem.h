#pragma once

#import <AppKit/NSCell.h>

@class NSMenu;

NS_ASSUME_NONNULL_BEGIN

@interface NSMenuItem : NSObject <NSCopying>
@property (nullable, strong) NSMenu* submenu;
@property (copy) NSString* title;
@property NSControlStateValue state;
@property (nullable, weak) id target;
@property (nullable, strong) id representedObject;
@property NSInteger tag;
+ (NSMenuItem*)separatorItem;
- (instancetype)initWithTitle:(NSString*)string
                       action:(nullable SEL)selector
                keyEquivalent:(NSString*)charCode NS_DESIGNATED_INITIALIZER;
@end

NS_ASSUME_NONNULL_END
