#pragma once

#import <AppKit/NSAccessibilityProtocols.h>

API_AVAILABLE(macos(10.10))
@interface NSAccessibilityElement : NSObject <NSAccessibility>
@end
