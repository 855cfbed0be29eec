#pragma once

#include <CoreGraphics/CGBase.h>

typedef struct __CGEvent* CGEventRef;
typedef struct __CGEventTapProxy* CGEventTapProxy;
typedef uint64_t CGEventMask;

typedef CF_ENUM(uint32_t, CGEventType) {
    kCGEventMouseMoved = 5,
    kCGEventLeftMouseDragged = 6,
    kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
    kCGEventTapDisabledByUserInput = 0xFFFFFFFF
};

typedef CF_ENUM(uint32_t, CGEventTapLocation) { kCGHIDEventTap = 0 };
typedef CF_ENUM(uint32_t, CGEventTapPlacement) { kCGHeadInsertEventTap = 0 };
typedef CF_ENUM(uint32_t, CGEventTapOptions) { kCGEventTapOptionDefault = 0 };

typedef CGEventRef _Nullable (*CGEventTapCallBack)(CGEventTapProxy _Nonnull proxy, CGEventType type,
                                                   CGEventRef _Nonnull event,
                                                   void* _Nullable userInfo);
