#pragma once

#import <AppKit/NSControl.h>

API_AVAILABLE(macos(10.15))
@interface NSSwitch : NSControl
@property NSControlStateValue state;
@end
