#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSUInteger, NSEventType) {
    NSEventTypeLeftMouseDown = 1,
    NSEventTypeLeftMouseDragged = 6
};

typedef NS_OPTIONS(unsigned long long, NSEventMask) { NSEventMaskKeyDown = 1ULL << 10 };
typedef NS_OPTIONS(NSUInteger, NSEventModifierFlags) { NSEventModifierFlagControl = 1 << 18 };

@interface NSEvent : NSObject <NSCopying>
@property (class, readonly) NSTimeInterval doubleClickInterval;
@property (class, readonly) NSPoint mouseLocation;
@property (class, readonly) NSUInteger pressedMouseButtons;
@property (readonly) NSEventType type;
@property (readonly) NSEventModifierFlags modifierFlags;
@property (readonly) NSTimeInterval timestamp;
@property (readonly) NSPoint locationInWindow;
@property (readonly) unsigned short keyCode;
+ (nullable id)addLocalMonitorForEventsMatchingMask:(NSEventMask)mask
                                            handler:(NSEvent* _Nullable (^)(NSEvent* event))block;
+ (void)removeMonitor:(id)eventMonitor;
@end

NS_ASSUME_NONNULL_END
