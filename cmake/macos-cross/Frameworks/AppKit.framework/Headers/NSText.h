#pragma once

#import <AppKit/AppKitDefines.h>

typedef NS_ENUM(NSInteger, NSTextAlignment) {
#if TARGET_CPU_ARM64
    NSTextAlignmentRight = 2
#else
    NSTextAlignmentRight = 1
#endif
};
