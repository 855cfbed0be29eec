#pragma once

#import <AppKit/AppKitDefines.h>

NS_ASSUME_NONNULL_BEGIN

typedef NSString* NSDeviceDescriptionKey;

@interface NSScreen : NSObject
@property (class, readonly, copy) NSArray<NSScreen*>* screens;
@property (readonly) NSRect frame;
@property (readonly) NSRect visibleFrame;
@property (readonly, copy) NSDictionary<NSDeviceDescriptionKey, id>* deviceDescription;
@property (readonly) CGFloat backingScaleFactor;
@property (readonly, copy) NSString* localizedName API_AVAILABLE(macos(10.15));
@property (readonly) NSInteger maximumFramesPerSecond API_AVAILABLE(macos(12.0));
@end

NS_ASSUME_NONNULL_END
