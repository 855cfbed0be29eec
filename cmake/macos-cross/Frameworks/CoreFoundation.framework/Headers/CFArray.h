#pragma once

#include <CoreFoundation/CFBase.h>

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

typedef const struct CF_BRIDGED_TYPE(NSArray) __CFArray* CFArrayRef;

CF_EXPORT CFTypeID CFArrayGetTypeID(void);
CF_EXPORT CFIndex CFArrayGetCount(CFArrayRef theArray);
CF_EXPORT const void* _Nullable CFArrayGetValueAtIndex(CFArrayRef theArray, CFIndex idx);

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
