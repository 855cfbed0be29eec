#pragma once

#include <CoreFoundation/CFBase.h>

#define CG_EXTERN CF_EXPORT

typedef double CGFloat;
