#pragma once

#import <Foundation/NSObjCRuntime.h>

NS_ASSUME_NONNULL_BEGIN

typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) {
    NSApplicationSupportDirectory = 14,
    NSDownloadsDirectory = 15,
    NSTrashDirectory = 102
};

typedef NS_OPTIONS(NSUInteger, NSSearchPathDomainMask) { NSUserDomainMask = 1 };

FOUNDATION_EXPORT NSString* NSHomeDirectory(void);

NS_ASSUME_NONNULL_END
