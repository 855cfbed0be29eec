#pragma once

#include <CoreFoundation/CFBase.h>

CF_IMPLICIT_BRIDGING_ENABLED

typedef CFStringRef CFRunLoopMode;
typedef struct __CFRunLoop* CFRunLoopRef;
typedef struct __CFRunLoopSource* CFRunLoopSourceRef;

CF_EXPORT const CFRunLoopMode _Null_unspecified kCFRunLoopDefaultMode;

enum { kCFRunLoopRunFinished = 1 };

CF_EXPORT CFRunLoopRef _Null_unspecified CFRunLoopGetCurrent(void);
CF_EXPORT void CFRunLoopStop(CFRunLoopRef _Null_unspecified rl);
CF_EXPORT void CFRunLoopAddSource(CFRunLoopRef _Null_unspecified rl,
                                  CFRunLoopSourceRef _Null_unspecified source,
                                  CFRunLoopMode _Null_unspecified mode);

CF_EXPORT int32_t CFRunLoopRunInMode(CFRunLoopMode _Null_unspecified mode, double seconds,
                                     Boolean returnAfterSourceHandled);

CF_IMPLICIT_BRIDGING_DISABLED

