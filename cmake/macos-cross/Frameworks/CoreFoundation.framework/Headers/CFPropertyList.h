#pragma once

#include <CoreFoundation/CFBase.h>

typedef CFTypeRef CFPropertyListRef;
