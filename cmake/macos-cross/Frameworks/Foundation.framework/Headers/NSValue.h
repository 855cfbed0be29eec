#pragma once

#import <Foundation/NSObjCRuntime.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSValue : NSObject <NSCopying>
@end

@interface NSNumber : NSValue
@property (readonly) BOOL boolValue;
@property (readonly) double doubleValue;
@property (readonly) long long longLongValue;
+ (NSNumber*)numberWithInt:(int)value;
+ (NSNumber*)numberWithBool:(BOOL)value;
@end

NS_ASSUME_NONNULL_END
