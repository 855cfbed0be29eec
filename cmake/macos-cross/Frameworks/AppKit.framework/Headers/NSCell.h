#pragma once

#import <AppKit/AppKitDefines.h>

typedef NSInteger NSControlStateValue;
enum : NSControlStateValue { NSControlStateValueOff = 0, NSControlStateValueOn = 1 };
