#pragma once

#include <CoreFoundation/CoreFoundation.h>

#define kAXMainWindowAttribute CFSTR("AXMainWindow")
#define kAXPositionAttribute CFSTR("AXPosition")
#define kAXSizeAttribute CFSTR("AXSize")
#define kAXWindowsAttribute CFSTR("AXWindows")
