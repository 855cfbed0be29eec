#pragma once

// Defines Point, Rect and Size in the global namespace, as on a Mac.
#include <MacTypes.h>
#include <os/availability.h>
#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
#define CF_EXPORT extern "C"
#else
#define CF_EXPORT extern
#endif

#define CF_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define CF_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define CF_IMPLICIT_BRIDGING_ENABLED _Pragma("clang arc_cf_code_audited begin")
#define CF_IMPLICIT_BRIDGING_DISABLED _Pragma("clang arc_cf_code_audited end")

#define CF_ENUM(type, name)                                                                        \
    enum __attribute__((enum_extensibility(open))) name : type name;                               \
    enum name : type
// In C++ a set of flags is an integer type, so that flags can be combined.
#define CF_OPTIONS(type, name)                                                                     \
    type name;                                                                                     \
    enum __attribute__((enum_extensibility(open), flag_enum)) : name

#define CF_BRIDGED_TYPE(type) __attribute__((objc_bridge(type)))

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

typedef signed long CFIndex;
typedef unsigned long CFTypeID;
typedef const void* CFTypeRef;
typedef const struct CF_BRIDGED_TYPE(NSString) __CFString* CFStringRef;

typedef const struct __CFAllocator* CFAllocatorRef;

CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef cf);
CF_EXPORT CFTypeRef CFRetain(CFTypeRef cf);
CF_EXPORT void CFRelease(CFTypeRef cf);

CF_IMPLICIT_BRIDGING_DISABLED

#ifdef __OBJC__
static inline id _Nullable CFBridgingRelease(CFTypeRef __attribute__((cf_consumed)) _Nullable x) {
    return (__bridge_transfer id)x;
}
#endif

CF_ASSUME_NONNULL_END
