#pragma once

#import <Foundation/NSObjCRuntime.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSOperationQueue : NSObject
@property (class, readonly, strong) NSOperationQueue* mainQueue;
@end

NS_ASSUME_NONNULL_END
