#pragma once

#include <CoreGraphics/CGBase.h>

typedef uint32_t CGDirectDisplayID;
