#pragma once

#include <CoreFoundation/CFPropertyList.h>

CF_ASSUME_NONNULL_BEGIN
CF_IMPLICIT_BRIDGING_ENABLED

CF_EXPORT CFPropertyListRef _Nullable CFPreferencesCopyAppValue(CFStringRef key,
                                                                CFStringRef applicationID);
CF_EXPORT Boolean CFPreferencesAppSynchronize(CFStringRef applicationID);

CF_IMPLICIT_BRIDGING_DISABLED
CF_ASSUME_NONNULL_END
