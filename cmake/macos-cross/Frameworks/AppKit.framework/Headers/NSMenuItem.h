#pragma once

#import <AppKit/AppKitDefines.h>

@class NSMenu;

NS_ASSUME_NONNULL_BEGIN

@interface NSMenuItem : NSObject <NSCopying>
@property (nullable, strong) NSMenu* submenu;
+ (NSMenuItem*)separatorItem;
- (instancetype)initWithTitle:(NSString*)string
                       action:(nullable SEL)selector
                keyEquivalent:(NSString*)charCode NS_DESIGNATED_INITIALIZER;
@end

NS_ASSUME_NONNULL_END
