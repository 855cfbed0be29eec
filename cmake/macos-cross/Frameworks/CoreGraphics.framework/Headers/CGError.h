#pragma once

#include <CoreGraphics/CGBase.h>

typedef CF_ENUM(int32_t, CGError) { kCGErrorSuccess = 0 };
