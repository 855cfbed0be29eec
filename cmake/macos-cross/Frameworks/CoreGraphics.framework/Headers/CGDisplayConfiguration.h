#pragma once

#include <CoreGraphics/CGDirectDisplay.h>
#include <CoreGraphics/CGError.h>

CF_ASSUME_NONNULL_BEGIN

typedef CF_OPTIONS(uint32_t, CGDisplayChangeSummaryFlags) { kCGDisplaySetMainFlag = 1U << 2 };

typedef void (*CGDisplayReconfigurationCallBack)(CGDirectDisplayID display,
                                                 CGDisplayChangeSummaryFlags flags,
                                                 void* _Nullable userInfo);

CG_EXTERN uint32_t CGDisplayUnitNumber(CGDirectDisplayID display);
CG_EXTERN CGError CGDisplayRegisterReconfigurationCallback(
    CGDisplayReconfigurationCallBack _Nullable callback, void* _Nullable userInfo);
CG_EXTERN CGError CGDisplayRemoveReconfigurationCallback(
    CGDisplayReconfigurationCallBack _Nullable callback, void* _Nullable userInfo);

CF_ASSUME_NONNULL_END
