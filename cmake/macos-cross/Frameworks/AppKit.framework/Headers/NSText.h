#pragma once

#include <TargetConditionals.h>

#import <AppKit/AppKitDefines.h>

typedef NS_ENUM(NSInteger, NSTextAlignment) {
#if TARGET_CPU_ARM64
    NSTextAlignmentCenter = 1,
    NSTextAlignmentRight = 2
#else
    NSTextAlignmentRight = 1,
    NSTextAlignmentCenter = 2
#endif
};
