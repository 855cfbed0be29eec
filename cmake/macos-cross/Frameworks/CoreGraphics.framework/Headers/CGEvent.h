#pragma once

#include <CoreFoundation/CFMachPort.h>
#include <CoreGraphics/CGEventTypes.h>
#include <CoreGraphics/CGGeometry.h>

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

CG_EXTERN CGPoint CGEventGetLocation(CGEventRef _Nullable event);
CG_EXTERN void CGEventSetLocation(CGEventRef _Nullable event, CGPoint location);
CG_EXTERN CFMachPortRef _Nullable CGEventTapCreate(
    CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
    CGEventMask eventsOfInterest, CGEventTapCallBack callback, void* _Nullable userInfo);
CG_EXTERN void CGEventTapEnable(CFMachPortRef tap, bool enable);

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
