#pragma once

#import <Foundation/NSTimer.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSRunLoopMode;

FOUNDATION_EXPORT NSRunLoopMode const NSRunLoopCommonModes;

@interface NSRunLoop : NSObject
@property (class, readonly, strong) NSRunLoop* mainRunLoop;
- (void)addTimer:(NSTimer*)timer forMode:(NSRunLoopMode)mode;
@end

NS_ASSUME_NONNULL_END
