// The types and functions of Accessibility that the program uses, as Apple documents them.
#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <ApplicationServices/AXAttributeConstants.h>
#include <ApplicationServices/AXError.h>
#include <ApplicationServices/AXUIElement.h>
#include <ApplicationServices/AXValue.h>
