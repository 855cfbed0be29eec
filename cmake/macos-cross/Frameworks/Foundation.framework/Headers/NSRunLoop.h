#pragma once

#import <Foundation/NSArray.h>
#import <Foundation/NSTimer.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSRunLoopMode;

FOUNDATION_EXPORT NSRunLoopMode const NSRunLoopCommonModes;

@interface NSRunLoop : NSObject
@property (class, readonly, strong) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode;
- (void)performInModes:(NSArray<NSRunLoopMode>*)modes
                 block:(void (^)(void))block API_AVAILABLE(macos(10.12));
@end

NS_ASSUME_NONNULL_END
