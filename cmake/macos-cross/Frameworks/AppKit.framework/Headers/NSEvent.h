#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSUInteger, NSEventType) {
    NSEventTypeLeftMouseDown = 1,
    NSEventTypeLeftMouseDragged = 6
};

@interface NSEvent : NSObject <NSCopying>
@property (class, readonly) NSTimeInterval doubleClickInterval;
@property (readonly) NSEventType type;
@end

NS_ASSUME_NONNULL_END
