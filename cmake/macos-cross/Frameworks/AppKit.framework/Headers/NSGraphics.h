#pragma once

#import <AppKit/AppKitDefines.h>

typedef NS_ENUM(NSUInteger, NSBackingStoreType) { NSBackingStoreBuffered = 2 };
