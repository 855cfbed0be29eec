#pragma once

#import <Foundation/NSDictionary.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSErrorDomain;
typedef NSString* NSErrorUserInfoKey;

FOUNDATION_EXPORT NSErrorDomain const NSPOSIXErrorDomain;

@interface NSError : NSObject <NSCopying>
@property (readonly) NSInteger code;
@property (readonly, copy) NSString* localizedDescription;
+ (instancetype)errorWithDomain:(NSErrorDomain)domain
                           code:(NSInteger)code
                       userInfo:(nullable NSDictionary<NSErrorUserInfoKey, id>*)dict;
@end

NS_ASSUME_NONNULL_END
