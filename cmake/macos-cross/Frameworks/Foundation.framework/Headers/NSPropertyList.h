#pragma once

#import <Foundation/NSData.h>
#import <Foundation/NSError.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_OPTIONS(NSUInteger, NSPropertyListMutabilityOptions) { NSPropertyListImmutable = 0 };
typedef NS_ENUM(NSUInteger, NSPropertyListFormat) { NSPropertyListXMLFormat_v1_0 = 100 };
typedef NSPropertyListMutabilityOptions NSPropertyListReadOptions;

@interface NSPropertyListSerialization : NSObject
+ (nullable id)propertyListWithData:(NSData*)data
                            options:(NSPropertyListReadOptions)opt
                             format:(nullable NSPropertyListFormat*)format
                              error:(NSError**)error;
@end

NS_ASSUME_NONNULL_END
