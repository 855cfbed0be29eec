#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

@interface NSEvent : NSObject <NSCopying>
@property (class, readonly) NSTimeInterval doubleClickInterval;
@end

NS_ASSUME_NONNULL_END
