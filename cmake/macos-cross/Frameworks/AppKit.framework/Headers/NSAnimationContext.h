#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSAnimationContext : NSObject
@property NSTimeInterval duration;
+ (void)runAnimationGroup:(void (^)(NSAnimationContext* context))changes
        completionHandler:(nullable void (^)(void))completionHandler API_AVAILABLE(macos(10.7));
@end

NS_ASSUME_NONNULL_END
