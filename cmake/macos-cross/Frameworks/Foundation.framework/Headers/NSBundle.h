#pragma once

#import <Foundation/NSURL.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSBundle : NSObject
@property (nullable, readonly, copy) NSString* bundleIdentifier;
+ (nullable instancetype)bundleWithURL:(NSURL*)url;
@end

NS_ASSUME_NONNULL_END
