#pragma once

#include <CoreGraphics/CGBase.h>

typedef uint16_t CGKeyCode;

typedef CF_ENUM(int32_t, CGEventSourceStateID) { kCGEventSourceStateCombinedSessionState = 0 };

CG_EXTERN bool CGEventSourceKeyState(CGEventSourceStateID stateID, CGKeyCode key);
