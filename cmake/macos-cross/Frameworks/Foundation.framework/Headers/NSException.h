#pragma once

#import <Foundation/NSObjCRuntime.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSExceptionName;

__attribute__((__objc_exception__))
@interface NSException : NSObject <NSCopying>
@property (readonly, copy) NSExceptionName name;
@property (nullable, readonly, copy) NSString* reason;
@end

NS_ASSUME_NONNULL_END
