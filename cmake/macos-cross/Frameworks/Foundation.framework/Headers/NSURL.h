#pragma once

#import <Foundation/NSObjCRuntime.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSURL : NSObject <NSCopying>
@property (readonly, getter=isFileURL) BOOL fileURL;
@property (nullable, readonly, copy) NSString* path;
@property (nullable, readonly, copy) NSString* absoluteString;
@property (nullable, readonly, copy) NSURL* filePathURL API_AVAILABLE(macos(10.6));
+ (NSURL*)fileURLWithPath:(NSString*)path;
+ (nullable instancetype)URLWithString:(NSString*)URLString;
@end

NS_ASSUME_NONNULL_END
