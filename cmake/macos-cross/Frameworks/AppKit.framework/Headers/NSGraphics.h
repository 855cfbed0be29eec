#pragma once

#import <AppKit/AppKitDefines.h>

typedef NS_ENUM(NSUInteger, NSBackingStoreType) { NSBackingStoreBuffered = 2 };
typedef NS_ENUM(NSUInteger, NSCompositingOperation) { NSCompositingOperationSourceIn = 3 };

APPKIT_EXTERN void NSRectFillUsingOperation(NSRect rect, NSCompositingOperation op);
