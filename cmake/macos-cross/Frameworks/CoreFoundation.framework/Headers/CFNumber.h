#pragma once

#include <CoreFoundation/CFBase.h>

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

typedef const struct CF_BRIDGED_TYPE(NSNumber) __CFNumber* CFNumberRef;

CF_EXPORT CFTypeID CFBooleanGetTypeID(void);
CF_EXPORT Boolean CFNumberIsFloatType(CFNumberRef number);

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
