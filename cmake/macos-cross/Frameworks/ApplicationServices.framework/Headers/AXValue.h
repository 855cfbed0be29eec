#pragma once

#include <CoreFoundation/CoreFoundation.h>

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

typedef const struct __AXValue* AXValueRef;

typedef CF_ENUM(uint32_t, AXValueType) { kAXValueCGPointType = 1, kAXValueCGSizeType = 2 };

CF_EXPORT CFTypeID AXValueGetTypeID(void);
CF_EXPORT AXValueRef _Nullable AXValueCreate(AXValueType theType, const void* valuePtr);
CF_EXPORT Boolean AXValueGetValue(AXValueRef value, AXValueType theType, void* valuePtr);

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
