#pragma once

#include <CoreFoundation/CFBase.h>

#define CFSTR(text) ((CFStringRef)__builtin___CFStringMakeConstantString("" text ""))
