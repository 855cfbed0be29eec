#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

API_AVAILABLE(macos(14.0))
@interface CADisplayLink : NSObject
@property (getter=isPaused) BOOL paused;
- (void)addToRunLoop:(NSRunLoop*)runloop forMode:(NSRunLoopMode)mode;
- (void)invalidate;
@end

NS_ASSUME_NONNULL_END
