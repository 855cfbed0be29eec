#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef CF_ENUM(int32_t, AXError) {
    kAXErrorSuccess = 0,
    kAXErrorFailure = -25200,
    kAXErrorIllegalArgument = -25201,
    kAXErrorCannotComplete = -25204,
    kAXErrorAPIDisabled = -25211
};
