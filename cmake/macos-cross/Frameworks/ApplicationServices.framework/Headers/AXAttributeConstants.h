#pragma once

#include <CoreFoundation/CoreFoundation.h>

#define kAXFrontmostAttribute CFSTR("AXFrontmost")
#define kAXMainAttribute CFSTR("AXMain")
#define kAXMainWindowAttribute CFSTR("AXMainWindow")
#define kAXMinimizedAttribute CFSTR("AXMinimized")
#define kAXPositionAttribute CFSTR("AXPosition")
#define kAXRaiseAction CFSTR("AXRaise")
#define kAXSizeAttribute CFSTR("AXSize")
#define kAXTitleAttribute CFSTR("AXTitle")
#define kAXWindowsAttribute CFSTR("AXWindows")
