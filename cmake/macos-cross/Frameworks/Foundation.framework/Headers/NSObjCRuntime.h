// Macros and types that all frameworks use.
#pragma once

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#include <os/availability.h>
#include <CoreFoundation/CFBase.h>

#import <objc/NSObject.h>

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_ENUM(type, name) CF_ENUM(type, name)
#define NS_OPTIONS(type, name) CF_OPTIONS(type, name)
#define FOUNDATION_EXPORT CF_EXPORT

NS_ASSUME_NONNULL_BEGIN

typedef double NSTimeInterval;

FOUNDATION_EXPORT SEL NSSelectorFromString(NSString* selectorName);
FOUNDATION_EXPORT Class _Nullable NSClassFromString(NSString* className);

@protocol NSCopying
- (id)copyWithZone:(nullable struct _NSZone*)zone;
@end

NS_ASSUME_NONNULL_END
