#pragma once

#include <CoreFoundation/CFRunLoop.h>

CF_IMPLICIT_BRIDGING_ENABLED

typedef struct __CFMachPort* CFMachPortRef;

CF_EXPORT void CFMachPortInvalidate(CFMachPortRef _Null_unspecified port);
CF_EXPORT CFRunLoopSourceRef _Null_unspecified CFMachPortCreateRunLoopSource(
    CFAllocatorRef _Nullable allocator, CFMachPortRef _Null_unspecified port, CFIndex order);

CF_IMPLICIT_BRIDGING_DISABLED
