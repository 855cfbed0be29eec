#pragma once

#include <ApplicationServices/AXError.h>

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

typedef const struct __AXUIElement* AXUIElementRef;

/// Key of the option that makes the system ask the user for the permission.
CF_EXPORT CFStringRef kAXTrustedCheckOptionPrompt;

CF_EXPORT Boolean AXIsProcessTrusted(void);
CF_EXPORT Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef _Nullable options);

CF_EXPORT CFTypeID AXUIElementGetTypeID(void);
CF_EXPORT AXUIElementRef AXUIElementCreateApplication(int pid);
CF_EXPORT AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                                CFTypeRef _Nullable* _Nonnull value);
CF_EXPORT AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                               CFTypeRef value);
CF_EXPORT AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);
CF_EXPORT AXError AXUIElementGetPid(AXUIElementRef element, int* pid);
CF_EXPORT AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds);

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
