#pragma once

#include <CoreFoundation/CFBase.h>

CF_IMPLICIT_BRIDGING_ENABLED

typedef CFStringRef CFRunLoopMode;
typedef struct __CFRunLoop* CFRunLoopRef;
typedef struct __CFRunLoopSource* CFRunLoopSourceRef;

CF_EXPORT const CFRunLoopMode _Null_unspecified kCFRunLoopCommonModes;

CF_EXPORT CFRunLoopRef _Null_unspecified CFRunLoopGetMain(void);
CF_EXPORT void CFRunLoopAddSource(CFRunLoopRef _Null_unspecified rl,
                                  CFRunLoopSourceRef _Null_unspecified source,
                                  CFRunLoopMode _Null_unspecified mode);

CF_IMPLICIT_BRIDGING_DISABLED

