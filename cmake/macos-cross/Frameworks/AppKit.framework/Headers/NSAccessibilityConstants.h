#pragma once

#import <AppKit/AppKitDefines.h>

typedef NSString* NSAccessibilityRole;
typedef NSString* NSAccessibilityNotificationName;

APPKIT_EXTERN NSAccessibilityRole const NSAccessibilityButtonRole;
APPKIT_EXTERN NSAccessibilityRole const NSAccessibilityGroupRole;

APPKIT_EXTERN NSAccessibilityNotificationName const NSAccessibilityLayoutChangedNotification
    API_AVAILABLE(macos(10.9));
APPKIT_EXTERN NSAccessibilityNotificationName const NSAccessibilityValueChangedNotification;
