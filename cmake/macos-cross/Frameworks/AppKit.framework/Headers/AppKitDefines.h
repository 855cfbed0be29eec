#pragma once

#import <CoreGraphics/CoreGraphics.h>
#import <Foundation/Foundation.h>

#define APPKIT_EXTERN CF_EXPORT
