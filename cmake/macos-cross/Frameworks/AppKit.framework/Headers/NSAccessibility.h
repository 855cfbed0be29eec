#pragma once

#import <AppKit/NSAccessibilityProtocols.h>
#import <AppKit/NSView.h>

NS_ASSUME_NONNULL_BEGIN

APPKIT_EXTERN NSRect NSAccessibilityFrameInView(NSView* parentView, NSRect frame)
    API_AVAILABLE(macos(10.10));
APPKIT_EXTERN void NSAccessibilityPostNotification(id element,
                                                   NSAccessibilityNotificationName notification);

NS_ASSUME_NONNULL_END
