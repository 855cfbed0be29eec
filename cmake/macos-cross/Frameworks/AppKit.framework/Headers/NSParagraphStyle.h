#pragma once

#import <AppKit/AppKitDefines.h>

typedef NS_ENUM(NSUInteger, NSLineBreakMode) { NSLineBreakByTruncatingTail = 4 };
