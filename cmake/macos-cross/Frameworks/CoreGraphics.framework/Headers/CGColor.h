#pragma once

#include <CoreGraphics/CGBase.h>

typedef struct CGColor* CGColorRef;
